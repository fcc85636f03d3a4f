#include "platform/windows/programs/program_output.h"

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

#include "base/runtime_error.h"
#include "platform/windows/programs/output_pipe.h"
#include "platform/windows/system/system_errors.h"
#include "platform/windows/system/utf16.h"

namespace velmora::windows {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t bytesPerRead = 1U << 16;

[[noreturn]] void refuse(DWORD failure) {
    const bool isMissing = errorOfStarting(failure) == error::fileNotFound;
    throw RuntimeError(isMissing ? error::fileNotFound : error::permissionDenied);
}

UniqueHandle nothingToReadOrKeep() {
    SECURITY_ATTRIBUTES inheritable{};
    inheritable.nLength = sizeof inheritable;
    inheritable.bInheritHandle = TRUE;
    return UniqueHandle(CreateFileW(L"NUL", GENERIC_READ | GENERIC_WRITE,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE, &inheritable, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr));
}

/// The handles that a program takes over, and no others.
class InheritedHandles {
  public:
    InheritedHandles(HANDLE first, HANDLE second) : handles_{first, second} {
        SIZE_T size = 0;
        InitializeProcThreadAttributeList(nullptr, 1, 0, &size);
        memory_ = std::make_unique<char[]>(size);
        auto* const list = reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(memory_.get());
        if (!InitializeProcThreadAttributeList(list, 1, 0, &size)) return;
        list_ = list;
        UpdateProcThreadAttribute(list_, 0, PROC_THREAD_ATTRIBUTE_HANDLE_LIST, handles_.data(),
                                  sizeof handles_, nullptr, nullptr);
    }
    ~InheritedHandles() {
        if (list_) DeleteProcThreadAttributeList(list_);
    }
    InheritedHandles(const InheritedHandles&) = delete;
    InheritedHandles& operator=(const InheritedHandles&) = delete;
    LPPROC_THREAD_ATTRIBUTE_LIST list() const { return list_; }

  private:
    std::array<HANDLE, 2> handles_;
    std::unique_ptr<char[]> memory_;
    LPPROC_THREAD_ATTRIBUTE_LIST list_ = nullptr;
};

/// A job that ends its programs when it is closed, also when this program is ended.
UniqueHandle newJob() {
    UniqueHandle job(CreateJobObjectW(nullptr, nullptr));
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    SetInformationJobObject(job.get(), JobObjectExtendedLimitInformation, &limits, sizeof limits);
    return job;
}

}  // namespace

ProgramOutput::ProgramOutput(const std::string& commandLine) : job_(newJob()) {
    const bool isWhole = !commandLine.empty() && commandLine.find('\0') == std::string::npos;
    if (!isWhole) throw RuntimeError(error::fileNotFound);
    OutputPipe pipe = newOutputPipe();
    if (!pipe.writer.isOpen() || !job_.isOpen()) throw RuntimeError(error::permissionDenied);
    output_ = std::move(pipe.reader);
    start(commandLine, pipe.writer.get());
}

ProgramOutput::~ProgramOutput() {
    end();
}

// It runs only once it belongs to the job, so that nothing that it starts escapes.
void ProgramOutput::start(const std::string& commandLine, HANDLE output) {
    const UniqueHandle nothing = nothingToReadOrKeep();
    const InheritedHandles inherited(output, nothing.get());
    std::wstring line = toUtf16(commandLine);  // which the call may write into
    STARTUPINFOEXW start{};
    start.StartupInfo.cb = sizeof start;
    start.StartupInfo.dwFlags = STARTF_USESTDHANDLES | STARTF_USESHOWWINDOW;
    start.StartupInfo.wShowWindow = SW_HIDE;
    start.StartupInfo.hStdInput = nothing.get();
    start.StartupInfo.hStdOutput = output;
    start.StartupInfo.hStdError = nothing.get();
    start.lpAttributeList = inherited.list();
    constexpr DWORD flags = CREATE_NO_WINDOW | CREATE_SUSPENDED | CREATE_DEFAULT_ERROR_MODE |
                            EXTENDED_STARTUPINFO_PRESENT;
    PROCESS_INFORMATION started{};
    if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, flags, nullptr, nullptr,
                        &start.StartupInfo, &started))
        refuse(GetLastError());
    const UniqueHandle thread(started.hThread);
    process_.reset(started.hProcess);
    AssignProcessToJobObject(job_.get(), process_.get());
    ResumeThread(thread.get());
}

void ProgramOutput::end() {
    TerminateJobObject(job_.get(), 1);
    // A system that allows one job a program may have refused it.
    if (process_.isOpen()) TerminateProcess(process_.get(), 1);
    process_.reset();
}

std::string ProgramOutput::readAll(const OutputLimits& limits) {
    const auto last = Clock::now() + limits.duration;
    std::string bytes;
    while (bytes.size() < limits.bytes) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(last - Clock::now());
        if (left <= std::chrono::milliseconds::zero()) break;
        const std::string more =
            readFrom(output_.get(), std::min(bytesPerRead, limits.bytes - bytes.size()),
                     std::min(left, limits.silence));
        if (more.empty()) break;
        bytes += more;
    }
    end();
    return bytes;
}

}  // namespace velmora::windows
