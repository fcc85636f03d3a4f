// The console's standard streams, made to carry UTF-8 bytes unchanged.
#pragma once

namespace velmora {

/// Prepares them; to be called before anything is written.
void prepareStreams();

/// The part of it that each system does in its own way.
void prepareSystemStreams();

/// Whether the last text on the standard output was lost because nobody reads it any more, and not
/// because its disk is full.
bool isReaderGone();

}  // namespace velmora
