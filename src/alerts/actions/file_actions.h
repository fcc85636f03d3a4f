// Moving, deleting or recycling a listed file, with its report.
#pragma once

#include <cstdint>
#include <string>

#include "alerts/actions/action_parts.h"

namespace velmora {

/// What became of a file.
namespace file_result {
inline constexpr const char* handled = "1";
inline constexpr const char* notHandled = "0";
inline constexpr const char* noTarget = "n/a";
}  // namespace file_result

class FileActions {
  public:
    explicit FileActions(ActionParts& parts) : parts_(parts) {}

    /// Handles listed files of the root `strDrv`, from the last row of LVFile on. The walk ends
    /// where its index isn't below the number of rows, so at the last row unless rows are added
    /// during its yield. A negative `iAct` does nothing. `strPath` is filled when it is empty;
    /// `strFile` must be empty and receives the path of the last file. A handled row is removed
    /// with any result; a file that doesn't exist keeps its row.
    void prcFileAct(std::int16_t& iAct, ListItem& itmTarget, std::int16_t& iMaxFiles,
                    std::string& strDrv, std::string& strPath, std::string& strFile);

    /// One file, and its alert; `iAct` is one of act::move, remove, recycle and autoMove; with
    /// others nothing is done. Moving: error 438 when `strPath` is a folder, which can't report its
    /// free space; error 424 when it is neither drive nor folder (auto move: "n/a").
    std::string prcFileActOption(std::int16_t& iAct, std::string& strFile, std::string& strPath);

  private:
    struct Walk;
    bool takeRow(Walk& walk, int place);
    bool isSpaceEnough(const Walk& walk);
    std::int32_t minimumOf(const Walk& walk);

    std::string move(const std::string& strFile, const std::string& strPath);
    std::string autoMove(const std::string& strFile, const std::string& strPath);
    std::string remove(const std::string& strFile, const std::string& strPath);
    std::string recycle(const std::string& strFile);
    /// In bytes.
    double sizeOf(const std::string& strFile);
    double availableKB(const std::string& strPath);
    bool moveAndReport(const std::string& strFile, const std::string& strPath, double bytes);
    void report(const std::string& what, const std::string& strFile, const std::string& strPath,
                double bytes);

    ActionParts& parts_;
};

}  // namespace velmora
