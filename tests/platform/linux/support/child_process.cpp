#include "platform/linux/support/child_process.h"

#include <grp.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstddef>
#include <cstdint>
#include <filesystem>

namespace velmora::linuxhost {

namespace {

constexpr uid_t nobody = 65534;
constexpr int crashed = 98;
constexpr int noCondition = 99;

bool becomeNobody() {
    return setgroups(0, nullptr) == 0 && setgid(nobody) == 0 && setuid(nobody) == 0;
}

}  // namespace

bool letCallsFail(long number, int failure) {
    // The sanitizers try whether memory can be read by writing 16 bytes of it into a pipe. What
    // stands in the place of a length that a call doesn't have is left over from another.
    const std::uint8_t sparesThese = number == SYS_write ? 1 : 0;
    sock_filter filter[] = {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<unsigned>(number), 0, 3),
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, args[2])),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, 16, sparesThese, 0),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | static_cast<unsigned>(failure)),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW)};
    sock_fprog program{6, filter};
    return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
           prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}

int inChild(const std::function<int()>& step) {
    const pid_t child = fork();
    if (child == 0) {
        int result = crashed;
        try {
            result = step();
        } catch (...) {
        }
        _exit(result);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : crashed;
}

std::string whyNotNobody() {
    return geteuid() == 0 ? "" : "only root can become somebody else";
}

void giveToNobody(const std::string& folder) {
    if (lchown(folder.c_str(), nobody, nobody) != 0) return;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (lchown(entry.path().c_str(), nobody, nobody) != 0) return;
    }
}

int asNobody(const std::function<int()>& step) {
    return inChild([&] { return becomeNobody() ? step() : noCondition; });
}

std::optional<int> callsOf(long number, const std::function<int()>& step) {
    const pid_t child = fork();
    if (child == 0) {
        if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) _exit(noCondition);
        raise(SIGSTOP);
        _exit(step());
    }
    int calls = 0;
    int status = 0;
    waitpid(child, &status, 0);
    ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD);
    ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
    while (waitpid(child, &status, 0) == child && WIFSTOPPED(status)) {
        __ptrace_syscall_info call{};
        ptrace(PTRACE_GET_SYSCALL_INFO, child, sizeof call, &call);
        const bool isEntry = call.op == PTRACE_SYSCALL_INFO_ENTRY;
        if (isEntry && call.entry.nr == static_cast<std::uint64_t>(number)) ++calls;
        ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
    }
    return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? std::optional(calls) : std::nullopt;
}

int withoutCall(long number, int failure, const std::function<int()>& step) {
    return inChild([&] { return letCallsFail(number, failure) ? step() : noCondition; });
}

}  // namespace velmora::linuxhost
