#include <chrono>
#include <cstdlib>
#include <iostream>
#include <thread>

#include "app/console_program.h"
#include "app/streams.h"

int main() {
    velmora::prepareStreams();
    std::ios::sync_with_stdio(false);
    std::cin.tie(nullptr);
    const auto machine = velmora::openMachine();
    const int status = velmora::runConsole(*machine, std::cin, std::cout, [](std::int64_t ms) {
        std::this_thread::sleep_for(std::chrono::milliseconds(ms));
    });
    // At once, without waiting for a drive that doesn't answer.
    std::cout.flush();
    std::_Exit(status);
}
