// A process of this program's own that answers questions, one datagram each, so that what doesn't
// answer keeps only that process waiting. A thread would not do: one that waits for a FUSE server
// can't be ended, and neither can its process, so the program could not end.
//
// At most one question is pending. While it is, further ones cost nothing and get no answer; its
// late answer is thrown away, since it belongs to a moment long past.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstddef>
#include <cstdint>

#include "platform/linux/system/unique_fd.h"

namespace velmora::linuxhost {

class AskedProcess {
  public:
    /// The child's whole life: it answers at the socket of a forked child until its other end is
    /// closed.
    using Life = void (*)();

    /// `name` is the child's in lists of processes, of at most 15 characters.
    AskedProcess(const char* name, Life live) : name_(name), live_(live) {}
    ~AskedProcess() { stop(); }
    AskedProcess(const AskedProcess&) = delete;
    AskedProcess& operator=(const AskedProcess&) = delete;

    /// How many bytes of an answer of at most `answerSize` came within the deadline. 0 when none
    /// came, an earlier question is still pending, or no process can be had. The first question
    /// starts the process; one that has died is replaced at the next question.
    std::size_t ask(const void* question, std::size_t size, void* answer, std::size_t answerSize,
                    std::chrono::milliseconds deadline);

    /// Gives an order, which isn't answered, to the process if there is one. It is carried out
    /// behind a question that is pending.
    void tell(const void* order, std::size_t size);

    bool isPending() const { return pending_; }
    /// How many questions went out.
    std::uint64_t sent() const { return sent_; }
    /// The process's id, or -1.
    pid_t id() const { return process_; }
    /// Gives up the process, which ends as soon as what it waits for has answered it.
    void stop();
    /// The same for one that nothing more is wanted of: it ends as soon as the system allows it.
    void end();

  private:
    bool start();
    bool send(const void* question, std::size_t size);
    enum class Received { answer, nothing, end };
    Received receive(void* answer, std::size_t& size) const;
    bool waitFor(short events, std::chrono::milliseconds deadline) const;

    const char* name_;
    Life live_;
    UniqueFd socket_;
    pid_t process_ = -1;
    bool pending_ = false;
    std::uint64_t sent_ = 0;
};

}  // namespace velmora::linuxhost
