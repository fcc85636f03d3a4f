// The watch row: the fields of one watched entry by name, over a row of ListView1. No other file
// knows which column, tag, key or icon holds what, how a size is read back, or what is shown
// instead of one. `ConstWatchRow` reads, `WatchRow` writes too. Both hold a reference to the row.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "base/regional.h"
#include "controls/list_view.h"
#include "rows/size_text.h"

namespace velmora {

namespace state_icon {
inline constexpr const char* alert = "alert";
inline constexpr const char* ok = "ok";
inline constexpr const char* none = "";
}  // namespace state_icon

/// Free space and total size as rows show them.
struct SpaceTexts {
    std::string free;
    std::string total;

    void setReading(double freeBytes, double totalBytes, Grouping grouping,
                    const Regional& regional);
    /// The drive isn't ready. The total size stays.
    void setNotReady();
};

class ConstWatchRow {
  public:
    explicit ConstWatchRow(const ListItem& item) : item_(item) {}

    /// A drive root or a folder path.
    const std::string& path() const { return item_.Text(); }
    /// A whole number of KB, with or without digit groups, and " KB"; or a text with "N/A".
    const std::string& freeSpace() const { return sub(columnFree).Text; }
    /// Likewise.
    const std::string& totalSize() const { return sub(columnTotal).Text; }
    /// The row's own minimum space, KB or percent; empty unless set individually.
    const std::string& trigger() const { return sub(columnTrigger).Text; }
    /// "mm/dd HH:mm:ss"; empty when the path went missing.
    const std::string& lastChecked() const { return sub(columnChecked).Text; }
    /// Only watched rows are measured by the check.
    bool watched() const { return item_.Checked(); }
    bool selected() const { return item_.Selected(); }

    // Whether there is a free space to go by. The readers have different rules.

    /// The free space doesn't hold "n/a", in capitals or not; an empty one is available.
    bool isAvailable() const;
    /// It is available and not empty.
    bool isMeasured() const;
    /// For the gauges: it doesn't hold "not ready", in capitals or not.
    bool isReadyForGauges() const;
    /// For the tray tip: it doesn't hold "N/A" in capitals.
    bool isAvailableForTip() const;

    /// The free space in KB. Error 13 when its text is no number.
    double freeKB(const Regional& regional) const;
    /// The total size in KB. Error 13 as above.
    double totalKB(const Regional& regional) const;
    /// The free space or total size in KB, 0 when its text is no number.
    double freeKBOrZero(const Regional& regional) const;
    double totalKBOrZero(const Regional& regional) const;

    /// The free space before the last update, without " KB"; empty for none.
    const std::string& previousFree() const { return sub(columnFree).Tag(); }
    bool hasPreviousFree() const { return !previousFree().empty(); }
    /// In KB. Error 13 when its text is no number.
    double previousFreeKB(const Regional& regional) const;
    /// Whether it has the same digits as this text of a size: they are compared as texts.
    bool previousFreeIs(const std::string& size) const {
        std::string room;
        return previousFree() == withoutUnit(size, room);
    }

    /// "file:N|fold:M|", "N/A" without a folder, empty when the path went missing.
    const std::string& folderCounts() const { return item_.Tag(); }
    bool hasFolderCounts() const { return !folderCounts().empty(); }
    /// The number of files or folders in them, as text; nothing without one.
    std::optional<std::string> fileCount() const;
    std::optional<std::string> folderCount() const;

    /// "alert", "ok" or empty for no icon.
    const std::string& stateIcon() const { return sub(columnFree).ReportIcon(); }
    bool isInAlert() const { return stateIcon() == state_icon::alert; }
    /// For the tray tip, which looks at the total size's icon instead; nothing ever sets that.
    bool isInAlertForTip() const { return sub(columnTotal).ReportIcon() == state_icon::alert; }
    /// Date and time of the last update, as text.
    const std::string& stamp() const { return sub(columnFree).Key(); }
    /// The text of the first alert raised for the row; empty for none.
    const std::string& firstAlert() const { return sub(columnChecked).Tag(); }
    /// The note of a refresh that found the path missing. It shares its place with the first alert.
    const std::string& inaccessibleNote() const { return firstAlert(); }
    /// Key of the system's picture of the path; empty for none.
    const std::string& pathIcon() const { return item_.SmallIcon(); }

  protected:
    // Columns from 1, as the header counts them. Sub-items are one less.
    static constexpr int columnFree = 2;
    static constexpr int columnTotal = 3;
    static constexpr int columnTrigger = 4;
    static constexpr int columnChecked = 5;

  private:
    const ListSubItem& sub(int column) const { return item_.ListSubItems(column - 1); }

    const ListItem& item_;
};

class WatchRow : public ConstWatchRow {
  public:
    /// In front of the path, in the alert of a refresh that found it missing; alone, the row's
    /// note.
    static constexpr const char* inaccessible = "Folder/Path inaccessible N/A: ";

    explicit WatchRow(ListItem& item) : ConstWatchRow(item), item_(item) {}
    /// The row at that index. Error 35600 when there is none or when its path is another: rows may
    /// be sorted or removed whenever handlers run.
    static WatchRow at(ListView& list, int index, const std::string& path);

    void setPath(std::string path) { item_.setText(std::move(path)); }
    void setFreeSpace(std::string text) { setSub(columnFree, std::move(text)); }
    void setTotalSize(std::string text) { setSub(columnTotal, std::move(text)); }
    void setTrigger(std::string text) { setSub(columnTrigger, std::move(text)); }
    void setLastChecked(std::string text) { setSub(columnChecked, std::move(text)); }

    void setReading(const SpaceTexts& texts);
    void setFreeBytes(double bytes, Grouping grouping, const Regional& regional);
    void setTotalBytes(double bytes, Grouping grouping, const Regional& regional);
    /// A path was added whose drive isn't ready.
    void markNotReadyWhenAdded();
    /// The path is no drive root and no share: its counts go.
    void markNoDrive();
    /// A refresh found the path missing.
    void markInaccessible();

    void setPreviousFree(std::string_view text) { item_.setSubTag(columnFree - 1, text); }
    /// Makes the present free space the previous one.
    void keepPreviousFree();
    void setFolderCounts(std::string_view text) { item_.setTag(text); }
    void setFolderCounts(double files, double folders);
    void setNoFolder() { setFolderCounts(notAvailable); }
    /// Empties the previous free space and the counts.
    void forgetFigures();

    void setStateIcon(std::string_view key) { item_.setReportIcon(columnFree - 1, key); }
    void setStamp(std::string_view text) { item_.setSubKey(columnFree - 1, text); }
    void setFirstAlert(std::string_view text) { item_.setSubTag(columnChecked - 1, text); }
    void setInaccessibleNote(std::string_view text) { setFirstAlert(text); }
    void setPathIcon(std::string key) { item_.setSmallIcon(std::move(key)); }
    void setSelected(bool selected) { item_.setSelected(selected); }

    ListItem& item() const { return item_; }

  private:
    void setSub(int column, std::string text) { item_.setSubItems(column - 1, std::move(text)); }

    ListItem& item_;
};

}  // namespace velmora
