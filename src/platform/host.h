// Whoever sits in front of the program: a window asks the user, the console asks its input, a test
// answers from a list.
#pragma once

#include <string>

namespace velmora {

enum class BoxIcon { none, critical, question, information };
enum class BoxButtons { ok, okCancel, yesNo };
enum class BoxAnswer { ok, cancel, yes, no };

struct Box {
    std::string text;
    BoxIcon icon = BoxIcon::none;
    BoxButtons buttons = BoxButtons::ok;
    std::string title = "Velmora";
};

/// Thrown to end the program at once with an exit status. No std::exception, so that no handler
/// takes it for a run-time error.
struct ProgramEnd {
    int status = 0;
};

class Host {
  public:
    virtual ~Host() = default;

    /// Shows a box and waits for its answer. Dismissing it counts as the cancelling answer: No for
    /// Yes and No, Cancel for OK and Cancel, OK for OK alone.
    virtual BoxAnswer MsgBox(const Box& box) = 0;
    /// The folder browser; a drive path, empty when dismissed.
    virtual std::string BrowseForFolder(const std::string& title) = 0;
    /// The file dialog for one file; a drive path, empty when dismissed.
    virtual std::string OpenFileDialog(const std::string& title,
                                       const std::string& initialFolder) = 0;

    /// Runs due timers and waiting events and returns. Handlers may change anything meanwhile. A
    /// run-time error that none of their handlers takes ends the program here; it never reaches
    /// the caller.
    virtual void DoEvents() = 0;
};

/// The answer that dismissing such a box gives.
BoxAnswer cancellingAnswer(BoxButtons buttons);
/// The box that tells of the error being handled, which nothing took. For catch blocks only.
Box runTimeErrorBox();

}  // namespace velmora
