#include "platform/network/mail/curl_mail_client.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>

#include "platform/network/mail/mail_job.h"
#include "platform/network/mail_client.h"

namespace velmora::network {

// What a sending's thread shares with the client. The thread holds a reference of its own.
struct CurlMailClient::Sending {
    void finish(std::string reason) {
        const std::lock_guard lock(mutex);
        if (hasEnded) return;
        failure = std::move(reason);
        hasEnded = true;
        ending.notify_all();
    }

    /// Finishes with nothing kept of the password, which nobody but the caller may use any more.
    void giveUp(std::string reason) {
        message.password.wipe();
        finish(std::move(reason));
    }

    /// Whether it has ended. One that takes too long has: the library's own limit doesn't cover all
    /// that it waits for.
    bool isOver(std::chrono::steady_clock::time_point now) {
        if (now >= deadline) finish("The mail server did not finish within 60 seconds.");
        const std::lock_guard lock(mutex);
        return hasEnded;
    }

    const std::chrono::steady_clock::time_point deadline =
        std::chrono::steady_clock::now() + mailLimit;
    SmtpMessage message;  // the thread's alone once it runs
    MailJob job;
    std::mutex mutex;
    std::condition_variable ending;
    bool hasEnded = false;
    std::string failure;
    // Made beforehand, since there may be no memory for them when they are needed.
    std::string outOfMemory = "There is not enough memory to send the message.";
    std::string noThread = "The system has no thread for the sending.";
};

// Counts the threads that still send.
class CurlMailClient::Threads {
  public:
    void begin() {
        const std::lock_guard lock(mutex_);
        ++running_;
    }
    void end() {
        const std::lock_guard lock(mutex_);
        --running_;
        changed_.notify_all();
    }
    void waitForAll(std::chrono::milliseconds longest) {
        std::unique_lock lock(mutex_);
        changed_.wait_for(lock, longest, [this] { return running_ == 0; });
    }

  private:
    std::mutex mutex_;
    std::condition_variable changed_;
    int running_ = 0;
};

CurlMailClient::CurlMailClient() : threads_(std::make_shared<Threads>()) {}

CurlMailClient::~CurlMailClient() {
    cancel();
    threads_->waitForAll(std::chrono::seconds(2));
}

void CurlMailClient::begin(SmtpMessage message) {
    cancel();
    sending_ = std::make_shared<Sending>();
    const std::string objection = objectionTo(message);
    if (!objection.empty()) return sending_->finish(objection);
    sending_->message = std::move(message);
    threads_->begin();
    try {
        std::thread([sending = sending_, threads = threads_] {
            try {
                sending->finish(sending->job.send(sending->message));
            } catch (...) {
                sending->giveUp(std::move(sending->outOfMemory));
            }
            sending->job.close();
            threads->end();
        }).detach();
    } catch (...) {
        threads_->end();
        sending_->giveUp(std::move(sending_->noThread));
    }
}

bool CurlMailClient::ended() {
    return !sending_ || sending_->isOver(std::chrono::steady_clock::now());
}

std::string CurlMailClient::failure() {
    if (!ended() || !sending_) return {};
    const std::lock_guard lock(sending_->mutex);
    return sending_->failure;
}

void CurlMailClient::cancel() {
    if (!sending_) return;
    sending_->job.cancel();
    sending_->finish("The sending was given up.");
}

void CurlMailClient::waitForActivity(std::int32_t milliseconds) {
    if (!sending_) return;
    const auto end =
        std::min(std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds),
                 sending_->deadline);
    std::unique_lock lock(sending_->mutex);
    sending_->ending.wait_until(lock, end, [this] { return sending_->hasEnded; });
}

std::unique_ptr<SmtpClient> makeSmtpClient() {
    return std::make_unique<CurlMailClient>();
}

}  // namespace velmora::network
