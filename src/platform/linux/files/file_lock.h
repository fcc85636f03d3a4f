// Locks between programs that use one file.
#pragma once

namespace velmora::linuxhost {

enum class LockKind { shared, exclusive };

/// Locks an open file until it is closed, waiting two seconds at most. 0 when it is locked, and
/// where the filesystem knows no locks; EACCES when another program has kept it all the time.
int lockFile(int file, LockKind kind);

}  // namespace velmora::linuxhost
