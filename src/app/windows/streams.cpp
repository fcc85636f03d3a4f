#include "app/streams.h"

#include <fcntl.h>
#include <io.h>
#include <stdio.h>
#include <windows.h>

namespace velmora {

void prepareSystemStreams() {
    SetConsoleCP(CP_UTF8);
    SetConsoleOutputCP(CP_UTF8);
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
}

}  // namespace velmora
