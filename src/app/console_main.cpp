#include <chrono>
#include <cstdlib>
#include <iostream>
#include <thread>

#include "app/console_program.h"
#include "app/streams.h"

int main() {
    velmora::prepareStreams();
    std::cin.tie(nullptr);
    const auto machine = velmora::openMachine();
    const auto sleep = [](std::int64_t ms) {
        std::this_thread::sleep_for(std::chrono::milliseconds(ms));
    };
    const int status =
        velmora::runConsole(*machine, std::cin, std::cout, sleep, velmora::isReaderGone);
    // At once, without waiting for a drive that doesn't answer.
    std::cout.flush();
    std::_Exit(status);
}
