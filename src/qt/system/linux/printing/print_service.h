// The service that Qt hands print jobs to: what Qt doesn't say of it.
#pragma once

#include <QPrinter>

namespace velmora::qt {

/// Whether the service itself leaves out the pages that the user doesn't want; it gets all of them
/// then.
bool serviceChoosesPages(const QPrinter& printer);

/// Why the service refused the last job of this thread. Empty when it took the job, or when there
/// is no service.
QString serviceRefusal();

}  // namespace velmora::qt
