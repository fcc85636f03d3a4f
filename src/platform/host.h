// The user, as the program sees one: a window asks the user, the console asks its input, a test
// answers from a list.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

namespace velmora {

enum class BoxIcon { none, critical, question, information };
enum class BoxButtons { ok, okCancel, yesNo, yesNoCancel };
enum class BoxAnswer { ok, cancel, yes, no };

struct Box {
    std::string text;
    BoxIcon icon = BoxIcon::none;
    BoxButtons buttons = BoxButtons::ok;
    std::string title = "Velmora";
    /// What a window says below the text; nothing else shows it.
    std::string detail = {};
};

/// The answer to a question that is asked for each of several things.
struct SeriesAnswer {
    BoxAnswer answer = BoxAnswer::ok;
    bool isForTheRest = false;  ///< the user wants no further question of the series
};

/// The common file dialog for opening.
struct FileDialog {
    std::string DialogTitle = {};
    std::string InitDir = {};  ///< drive path; the host's choice when empty
    /// Pairs of a description and a pattern, all with "|" between: "All Files (*.*)|*.*".
    std::string Filter = {};
    std::int32_t Flags = 0;
};

namespace file_dialog {
inline constexpr std::int32_t allowMultiselect = 0x200;  ///< OFN_ALLOWMULTISELECT
inline constexpr std::int32_t explorer = 0x80000;        ///< OFN_EXPLORER
}  // namespace file_dialog

/// Thrown to end the program at once with an exit status. No std::exception, so that no handler
/// takes it for a run-time error.
struct ProgramEnd {
    int status = 0;
};

class Host {
  public:
    virtual ~Host() = default;

    /// Shows a box and waits for its answer. Dismissing it counts as the cancelling answer: No for
    /// Yes and No, Cancel where there is one, OK for OK alone.
    virtual BoxAnswer MsgBox(const Box& box) = 0;
    /// The same for one of a series of boxes. A window offers, in the words of `offer`, to take the
    /// answer for all that follow; elsewhere each is answered by itself.
    virtual SeriesAnswer MsgBoxOfSeries(const Box& box, const std::string& offer);
    /// Begins and ends a time in which the program answers nobody: a window shows it by its
    /// pointer. Each beginning needs its end; see Busy.
    virtual void ShowBusy(bool /*isBusy*/) {}
    /// Said at the first entry of a listing and now and then while it goes on, with the entries
    /// that it has read. Nothing of the program may run meanwhile: a window says it and draws
    /// itself.
    virtual void ShowListing(const std::string& /*folder*/, std::size_t /*entries*/) {}
    /// Shows what happened and doesn't wait: the program goes on, with a user in front of it or
    /// without. Where there is standard error to read, one line says the same.
    virtual void Tell(const Box& box) = 0;
    /// The folder browser; a drive path, empty when dismissed.
    virtual std::string BrowseForFolder(const std::string& title) = 0;
    /// The file dialog. Gives a drive path, empty when dismissed; when several files may be chosen
    /// and were, their folder and their names with a NUL between each two.
    virtual std::string OpenFileDialog(const FileDialog& dialog) = 0;
    virtual void Beep() = 0;
    /// A word beside what the program shows: for standard error where there is one to read.
    virtual void Note(const std::string& text) = 0;

    /// Runs due timers and waiting events and returns. Handlers may change anything meanwhile. A
    /// run-time error that none of their handlers takes ends the program here; it never reaches
    /// the caller.
    virtual void DoEvents() = 0;
    /// The same. False when it is known that nothing ran meanwhile.
    virtual bool DoEventsRan() {
        DoEvents();
        return true;
    }
};

/// The program is busy while this exists.
class Busy {
  public:
    explicit Busy(Host& host) : host_(host) { host_.ShowBusy(true); }
    ~Busy() { host_.ShowBusy(false); }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;

  private:
    Host& host_;
};

/// The answer that dismissing such a box gives.
BoxAnswer cancellingAnswer(BoxButtons buttons);
/// The box for the error being handled, which nothing has handled before. For catch blocks only.
Box runTimeErrorBox();
/// The same for a program that keeps running: it also says what was tried and on which file, by the
/// host's name for it. For catch blocks only.
Box survivedErrorBox(const std::function<std::string(const std::string&)>& toHostPath);

}  // namespace velmora
