// Run-time errors: the one kind of exception that the program's behaviour throws. Each carries the
// classic number that handlers test and the classic description that reaches alerts and boxes.
#pragma once

#include <exception>
#include <string>
#include <string_view>
#include <utility>

namespace velmora {

namespace error {
inline constexpr int invalidCall = 5;
inline constexpr int overflow = 6;
inline constexpr int outOfMemory = 7;
inline constexpr int subscriptOutOfRange = 9;
inline constexpr int divisionByZero = 11;
inline constexpr int typeMismatch = 13;
inline constexpr int fileNotFound = 53;
inline constexpr int deviceIo = 57;
inline constexpr int diskFull = 61;
inline constexpr int permissionDenied = 70;
inline constexpr int diskNotReady = 71;
inline constexpr int pathFileAccess = 75;
inline constexpr int pathNotFound = 76;
inline constexpr int invalidPropertyValue = 380;
inline constexpr int objectRequired = 424;
inline constexpr int unsupportedMember = 438;
inline constexpr int automation = 440;
inline constexpr int indexOutOfBounds = 35600;
}  // namespace error

/// The classic description of a run-time error number, such as "Type mismatch" for 13;
/// "Application-defined or object-defined error" for a number that has none.
std::string errorDescription(int number);

class RuntimeError : public std::exception {
  public:
    /// An error with the classic description of its number.
    explicit RuntimeError(int number);
    RuntimeError(int number, std::string description);

    int number() const noexcept { return number_; }
    const std::string& description() const noexcept { return description_; }
    const char* what() const noexcept override { return description_.c_str(); }

    /// What was tried when the error came: words such as "save the journal", the drive path of the
    /// file that it was about, and the handler that it began in. Each is empty while nobody has
    /// said it.
    const std::string& tried() const noexcept { return tried_; }
    const std::string& file() const noexcept { return file_; }
    const std::string& handler() const noexcept { return handler_; }
    /// Says so. What was said before stays: the step nearest to the error knows it best.
    void noteAttempt(std::string_view tried, std::string_view file);
    void noteHandler(std::string_view handler);

  private:
    int number_;
    std::string description_;
    std::string tried_;
    std::string file_;
    std::string handler_;
};

/// Runs a step; a run-time error of it leaves with what was tried, and on which file.
template <typename Step>
auto attempt(std::string_view tried, std::string_view file, Step&& step) {
    try {
        return std::forward<Step>(step)();
    } catch (RuntimeError& failure) {
        failure.noteAttempt(tried, file);
        throw;
    }
}

/// The exception being handled as a run-time error: itself when it is one, 7 for exhausted memory,
/// and otherwise 5 with the exception's own words (the classic ones if it has none). To be called
/// inside a catch block only.
RuntimeError currentRuntimeError();

}  // namespace velmora
