// The watch row: the fields of one watched entry by name, over a row of ListView1. Nobody else
// needs to know which column, tag or key holds what.
#pragma once

#include <string>

#include "controls/list_view.h"

namespace velmora {

class WatchRow {
  public:
    explicit WatchRow(ListItem& item) : item_(item) {}

    /// Columns from 1 as the header counts them; sub-items are one less.
    static constexpr int columnPath = 1;
    static constexpr int columnFree = 2;
    static constexpr int columnTotal = 3;
    static constexpr int columnTrigger = 4;
    static constexpr int columnChecked = 5;
    /// Gives the watch list, which has no columns yet, the headers that the fields stand under.
    static void addColumns(ListView& list);

    /// A drive root or a folder path.
    const std::string& path() const { return item_.Text(); }
    void setPath(std::string path) { item_.setText(std::move(path)); }
    /// A whole number of KB, with or without digit groups, and " KB"; or a text with "N/A".
    const std::string& freeSpace() const { return item_.SubItems(columnFree - 1); }
    void setFreeSpace(std::string text) { item_.setSubItems(columnFree - 1, std::move(text)); }
    /// Likewise.
    const std::string& totalSize() const { return item_.SubItems(columnTotal - 1); }
    void setTotalSize(std::string text) { item_.setSubItems(columnTotal - 1, std::move(text)); }
    /// The row's own minimum space, KB or percent; empty unless set individually.
    const std::string& trigger() const { return item_.SubItems(columnTrigger - 1); }
    void setTrigger(std::string text) { item_.setSubItems(columnTrigger - 1, std::move(text)); }
    /// "mm/dd HH:mm:ss"; empty when the path went missing.
    const std::string& lastChecked() const { return item_.SubItems(columnChecked - 1); }
    void setLastChecked(std::string text) { item_.setSubItems(columnChecked - 1, std::move(text)); }

    /// Only watched rows are measured by the check.
    bool watched() const { return item_.Checked(); }

    /// "file:N|fold:M|", "N/A" without a folder, empty when the path went missing.
    const std::string& folderCounts() const { return item_.Tag(); }
    void setFolderCounts(std::string text) { item_.setTag(std::move(text)); }
    /// The free space as it stood before the last update, without " KB".
    const std::string& previousFree() const { return item_.ListSubItems(1).Tag(); }
    void setPreviousFree(std::string text) { item_.setSubTag(1, std::move(text)); }
    /// "alert", "ok" or empty for no icon.
    const std::string& stateIcon() const { return item_.ListSubItems(1).ReportIcon(); }
    void setStateIcon(std::string key) { item_.setReportIcon(1, std::move(key)); }
    /// Date and time of the last update, as text.
    const std::string& stamp() const { return item_.ListSubItems(1).Key(); }
    void setStamp(std::string text) { item_.setSubKey(1, std::move(text)); }
    /// The note of a refresh that found the path missing. It shares its place with the text of the
    /// row's first alert.
    const std::string& inaccessibleNote() const { return item_.ListSubItems(4).Tag(); }
    void setInaccessibleNote(std::string text) { item_.setSubTag(4, std::move(text)); }

    ListItem& item() const { return item_; }

  private:
    ListItem& item_;
};

namespace state_icon {
inline constexpr const char* alert = "alert";
inline constexpr const char* ok = "ok";
inline constexpr const char* none = "";
}  // namespace state_icon

}  // namespace velmora
