#include "cmd/command_worker.h"

namespace korva::cmd {
namespace {

thread_local CommandWorker* runningWorker = nullptr;

}  // namespace

CommandWorker::CommandWorker(CommandWorker* owner, std::function<void()> body)
    : owner_(owner), body_(std::move(body)) {}

CommandWorker::~CommandWorker() {
  if (thread_.joinable()) thread_.join();
}

CommandWorker* CommandWorker::current() {
  return runningWorker;
}

void CommandWorker::run() {
  {
    std::unique_lock lock(mutex_);
    turnChanged_.wait(lock, [this] { return workerTurn_; });
  }
  runningWorker = this;
  body_();
  std::lock_guard lock(mutex_);
  finished_ = true;
  workerTurn_ = false;
  turnChanged_.notify_all();
}

void CommandWorker::resume() {
  std::unique_lock lock(mutex_);
  if (finished_) return;
  workerTurn_ = true;
  if (!started_) {
    started_ = true;
    thread_ = std::thread([this] { run(); });
  }
  turnChanged_.notify_all();
  turnChanged_.wait(lock, [this] { return !workerTurn_; });
  if (finished_) {
    lock.unlock();
    thread_.join();
  }
}

void CommandWorker::suspend() {
  std::unique_lock lock(mutex_);
  workerTurn_ = false;
  turnChanged_.notify_all();
  turnChanged_.wait(lock, [this] { return workerTurn_; });
}

}  // namespace korva::cmd
