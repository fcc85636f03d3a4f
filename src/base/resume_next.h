// Resume next: a list of statements; one that fails doesn't stop the next ones.
#pragma once

#include <exception>
#include <utility>

namespace velmora {

/// Runs the statements in order and passes over every one that fails. Returns how many failed.
template <typename... Statement>
int resumeNext(Statement&&... statements) {
    int failed = 0;
    [[maybe_unused]] auto guarded = [&failed](auto&& statement) {
        try {
            std::forward<decltype(statement)>(statement)();
        } catch (const std::exception&) {
            ++failed;
        }
    };
    (guarded(std::forward<Statement>(statements)), ...);
    return failed;
}

}  // namespace velmora
