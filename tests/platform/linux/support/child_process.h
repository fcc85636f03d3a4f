// Steps in a process of their own, under conditions from which there is no way back.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace velmora::linuxhost {

/// Runs the step in a child and gives its result, 0 to 90; 98 when the child crashed, 99 when the
/// condition could not be made.
int inChild(const std::function<int()>& step);

/// The same as a user without rights. Empty `whyNotNobody` when that is possible.
int asNobody(const std::function<int()>& step);
std::string whyNotNobody();
/// Gives a folder with all that is in it to that user.
void giveToNobody(const std::string& folder);

/// The same where every use of a system call fails with the errno.
int withoutCall(long number, int failure, const std::function<int()>& step);

/// How often the step, run in a child, uses a system call; nothing when that can't be counted.
std::optional<int> callsOf(long number, const std::function<int()>& step);

/// From here on every use of a system call fails in this process, which must be a child of that
/// kind. Whether that could be made.
bool letCallsFail(long number, int failure);

}  // namespace velmora::linuxhost
