// Runs a program and lets one of its system calls fail, or kills it in front of that call.
//
//   fail_call REPORT FROM WHAT N ERRNO PROGRAM ARGUMENT...
//
// WHAT is "count" (nothing fails), "fail" (the N-th call gives ERRNO without being made), "kill" (the program is killed
// in front of it) or "kill-all" (so are its children). The calls of the program and of all its children are counted
// together, from 1, those of a list only (see `calls`), and none on the program's standard input,
// output and error. Counting begins at the call that opens the path FROM, or behind a line "==begin==" on standard
// output where FROM is "-", and ends at a line "==end==".
//
// The report has one line for each counted call ("call N PROCESS NAME DETAIL") when WHAT is "count", else for the chosen
// one, and one with the open files of the program at each line of this form ("files begin TARGET..."), tabs between all.
// The status is the program's, 128 and the signal when a signal has ended it.
#define _GNU_SOURCE
#include <errno.h>
#include <signal.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>
#include <dirent.h>

#ifndef __x86_64__
#error "the registers of other machines are not known here"
#endif

// What stands in the arguments: where a path is, where a file is; -1 for none.
struct call {
    long number;
    const char* name;
    int path;
    int file;
};

static const struct call calls[] = {
    {SYS_access, "access", 0, -1},          {SYS_chdir, "chdir", 0, -1},
    {SYS_clone, "clone", -1, -1},           {SYS_clone3, "clone3", -1, -1},
    {SYS_connect, "connect", -1, 0},        {SYS_copy_file_range, "copy_file_range", -1, 0},
    {SYS_dup, "dup", -1, 0},                {SYS_execve, "execve", 0, -1},
    {SYS_faccessat, "faccessat", 1, 0},     {SYS_faccessat2, "faccessat2", 1, 0},
    {SYS_fallocate, "fallocate", -1, 0},    {SYS_fchmod, "fchmod", -1, 0},
    {SYS_fchown, "fchown", -1, 0},          {SYS_fdatasync, "fdatasync", -1, 0},
    {SYS_flock, "flock", -1, 0},            {SYS_fork, "fork", -1, -1},
    {SYS_fstat, "fstat", -1, 0},            {SYS_fstatfs, "fstatfs", -1, 0},
    {SYS_fsync, "fsync", -1, 0},            {SYS_ftruncate, "ftruncate", -1, 0},
    {SYS_getdents64, "getdents64", -1, 0},  {SYS_link, "link", 0, -1},
    {SYS_linkat, "linkat", 3, 2},           {SYS_lseek, "lseek", -1, 0},
    {SYS_lstat, "lstat", 0, -1},            {SYS_mkdir, "mkdir", 0, -1},
    {SYS_mkdirat, "mkdirat", 1, 0},         {SYS_newfstatat, "newfstatat", 1, 0},
    {SYS_open, "open", 0, -1},              {SYS_openat, "openat", 1, 0},
    {SYS_openat2, "openat2", 1, 0},         {SYS_pipe2, "pipe2", -1, -1},
    {SYS_pread64, "pread64", -1, 0},        {SYS_pwrite64, "pwrite64", -1, 0},
    {SYS_read, "read", -1, 0},              {SYS_readlink, "readlink", 0, -1},
    {SYS_readlinkat, "readlinkat", 1, 0},   {SYS_rename, "rename", 1, -1},
    {SYS_renameat, "renameat", 3, 2},       {SYS_renameat2, "renameat2", 3, 2},
    {SYS_recvfrom, "recvfrom", -1, 0},      {SYS_rmdir, "rmdir", 0, -1},
    {SYS_sendfile, "sendfile", -1, 0},      {SYS_sendto, "sendto", -1, 0},
    {SYS_socket, "socket", -1, -1},         {SYS_socketpair, "socketpair", -1, -1},
    {SYS_stat, "stat", 0, -1},              {SYS_statfs, "statfs", 0, -1},
    {SYS_statx, "statx", 1, 0},             {SYS_symlinkat, "symlinkat", 2, 1},
    {SYS_unlink, "unlink", 0, -1},          {SYS_unlinkat, "unlinkat", 1, 0},
    {SYS_utimensat, "utimensat", 1, 0},     {SYS_vfork, "vfork", -1, -1},
    {SYS_write, "write", -1, 0},            {SYS_writev, "writev", -1, 0},
};

enum what { COUNT, FAIL, KILL, KILL_ALL };

static FILE* report;
static const char* from;
static enum what what;
static long chosen;
static int error_number;

static pid_t program;
static int counting;
static long counted;

// Processes that are known, each with the failure that its running call ends with.
static struct process {
    pid_t id;
    int failure;
} processes[256];
static int process_count;

static struct process* process_of(pid_t id) {
    for (int i = 0; i < process_count; ++i) {
        if (processes[i].id == id) return &processes[i];
    }
    return NULL;
}

static struct process* add_process(pid_t id) {
    if (process_count == (int)(sizeof processes / sizeof processes[0])) {
        fputs("fail_call: too many processes\n", stderr);
        exit(125);
    }
    processes[process_count].id = id;
    processes[process_count].failure = 0;
    return &processes[process_count++];
}

static void forget_process(pid_t id) {
    struct process* known = process_of(id);
    if (known) *known = processes[--process_count];
}

static void text_at(pid_t id, uint64_t address, char* text, size_t size) {
    const struct iovec here = {text, size - 1};
    const struct iovec there = {(void*)(uintptr_t)address, size - 1};
    ssize_t got = process_vm_readv(id, &here, 1, &there, 1, 0);
    // The end of a page may be the end of what can be read.
    if (got < 0) {
        const struct iovec less = {(void*)(uintptr_t)address, 4096 - address % 4096};
        got = less.iov_len < size ? process_vm_readv(id, &here, 1, &less, 1, 0) : -1;
    }
    text[got < 0 ? 0 : got] = '\0';
}

static void target_of(pid_t id, int file, char* text, size_t size) {
    char link[64];
    snprintf(link, sizeof link, "/proc/%d/fd/%d", id, file);
    const ssize_t got = readlink(link, text, size - 1);
    text[got < 0 ? 0 : got] = '\0';
}

static void report_call(pid_t id, const struct call* made, const uint64_t* arguments) {
    char path[4096] = "";
    char file[4096] = "";
    if (made->path >= 0) text_at(id, arguments[made->path], path, sizeof path);
    if (made->file >= 0) target_of(id, (int)arguments[made->file], file, sizeof file);
    fprintf(report, "call\t%ld\t%s\t%s\t%s\t%s\n", counted, id == program ? "program" : "child",
            made->name, file, path);
    fflush(report);
}

static void report_files(const char* where) {
    char folder[64];
    snprintf(folder, sizeof folder, "/proc/%d/fd", program);
    DIR* listing = opendir(folder);
    if (!listing) return;
    fprintf(report, "files\t%s", where);
    for (const struct dirent* entry = readdir(listing); entry; entry = readdir(listing)) {
        char target[4096];
        if (entry->d_name[0] == '.') continue;
        target_of(program, atoi(entry->d_name), target, sizeof target);
        fprintf(report, "\t%s", target);
    }
    fputc('\n', report);
    fflush(report);
    closedir(listing);
}

static const struct call* call_of(uint64_t number) {
    for (size_t i = 0; i < sizeof calls / sizeof calls[0]; ++i) {
        if ((uint64_t)calls[i].number == number) return &calls[i];
    }
    return NULL;
}

// Lines on standard output that say where the run stands.
static void look_for_marks(pid_t id, uint64_t number, const uint64_t* arguments) {
    char text[4096];
    if (id != program || number != SYS_write || arguments[0] != 1) return;
    text_at(id, arguments[1], text, sizeof text);
    if (arguments[2] < sizeof text) text[arguments[2]] = '\0';
    char* mark = strstr(text, "==");
    char* end = mark ? strstr(mark + 2, "==") : NULL;
    if (!end) return;
    *end = '\0';
    report_files(mark + 2);
    if (strcmp(mark + 2, "begin") == 0) counting = 1;
    if (strcmp(mark + 2, "end") == 0) counting = 0;
}

static int begins_here(pid_t id, const struct call* made, const uint64_t* arguments) {
    char path[4096];
    if (counting || strcmp(from, "-") == 0 || made->path < 0 || id != program) return 0;
    text_at(id, arguments[made->path], path, sizeof path);
    return strcmp(path, from) == 0;
}

static void kill_at(void) {
    kill(program, SIGKILL);
    if (what != KILL_ALL) return;
    for (int i = 0; i < process_count; ++i) kill(processes[i].id, SIGKILL);
}

static void skip_call(pid_t id) {
    struct user_regs_struct registers;
    ptrace(PTRACE_GETREGS, id, 0, &registers);
    registers.orig_rax = (unsigned long long)-1;
    ptrace(PTRACE_SETREGS, id, 0, &registers);
}

static void give_failure(pid_t id, int failure) {
    struct user_regs_struct registers;
    ptrace(PTRACE_GETREGS, id, 0, &registers);
    registers.rax = (unsigned long long)-failure;
    ptrace(PTRACE_SETREGS, id, 0, &registers);
}

// Its lines in and out. A child has its own files there.
static int is_of_console(pid_t id, const struct call* made, const uint64_t* arguments) {
    char target[4096];
    if (made->file != 0 || made->path >= 0 || (int)arguments[0] > 2 || (int)arguments[0] < 0) return 0;
    target_of(id, (int)arguments[0], target, sizeof target);
    return id == program || strncmp(target, "pipe:", 5) == 0 || strncmp(target, "/dev/", 5) == 0;
}

static void at_entry(struct process* process, uint64_t number, const uint64_t* arguments) {
    look_for_marks(process->id, number, arguments);
    const struct call* made = call_of(number);
    if (!made) return;
    if (begins_here(process->id, made, arguments)) {
        counting = 1;
        from = "-";
    }
    if (!counting || is_of_console(process->id, made, arguments)) return;
    ++counted;
    if (what == COUNT) report_call(process->id, made, arguments);
    if (what == COUNT || counted != chosen) return;
    report_call(process->id, made, arguments);
    if (what == FAIL) {
        skip_call(process->id);
        process->failure = error_number;
    } else {
        kill_at();
    }
}

static void at_call(struct process* process) {
    struct __ptrace_syscall_info info;
    if (ptrace(PTRACE_GET_SYSCALL_INFO, process->id, sizeof info, &info) < 0) return;
    if (info.op == PTRACE_SYSCALL_INFO_ENTRY) {
        at_entry(process, info.entry.nr, (const uint64_t*)info.entry.args);
    } else if (info.op == PTRACE_SYSCALL_INFO_EXIT && process->failure) {
        give_failure(process->id, process->failure);
        process->failure = 0;
    }
}

// The signal that the stopped process gets.
static int at_stop(pid_t id, int status) {
    struct process* process = process_of(id);
    // A new one begins with a stop of its own.
    if (!process) {
        add_process(id);
        return 0;
    }
    const int signal_number = WSTOPSIG(status);
    if (signal_number == (SIGTRAP | 0x80)) {
        at_call(process);
        return 0;
    }
    return status >> 16 ? 0 : signal_number;
}

static void begin(char** command) {
    program = fork();
    if (program < 0) exit(125);
    if (program == 0) {
        ptrace(PTRACE_TRACEME, 0, 0, 0);
        raise(SIGSTOP);
        execvp(command[0], command);
        _exit(127);
    }
    add_process(program);
    waitpid(program, NULL, 0);
    const long options = PTRACE_O_TRACESYSGOOD | PTRACE_O_TRACEFORK | PTRACE_O_TRACEVFORK |
                         PTRACE_O_TRACECLONE | PTRACE_O_TRACEEXEC | PTRACE_O_EXITKILL;
    ptrace(PTRACE_SETOPTIONS, program, 0, options);
    ptrace(PTRACE_SYSCALL, program, 0, 0);
}

static enum what what_of(const char* name) {
    const char* const names[] = {"count", "fail", "kill", "kill-all"};
    for (int i = 0; i < 4; ++i) {
        if (strcmp(name, names[i]) == 0) return (enum what)i;
    }
    fprintf(stderr, "fail_call: %s?\n", name);
    exit(125);
}

int main(int count, char** words) {
    if (count < 7) {
        fputs("fail_call REPORT FROM count|fail|kill|kill-all N ERRNO PROGRAM ARGUMENT...\n", stderr);
        return 125;
    }
    report = fopen(words[1], "we");
    if (!report) return 125;
    from = words[2];
    what = what_of(words[3]);
    chosen = atol(words[4]);
    error_number = atoi(words[5]);
    begin(words + 6);
    int result = 125;
    int status = 0;
    for (pid_t id = waitpid(-1, &status, __WALL); id > 0; id = waitpid(-1, &status, __WALL)) {
        if (!WIFSTOPPED(status)) {
            if (id == program)
                result = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
            forget_process(id);
            continue;
        }
        ptrace(PTRACE_SYSCALL, id, 0, at_stop(id, status));
    }
    fprintf(report, "counted\t%ld\n", counted);
    return result;
}
