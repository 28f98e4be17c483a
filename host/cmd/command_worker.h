// A host command started from scripted tokens runs on a worker of its own, so that it can
// wait for more tokens when they run out: control then goes back to whoever scripted it,
// and comes back with the next tokens (or, once that command has ended, the user's input).
// Exactly one side runs at any time; the other waits on the baton.
#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace korva::cmd {

class CommandWorker {
 public:
  // owner: the worker that started this one, null for the main thread.
  CommandWorker(CommandWorker* owner, std::function<void()> body);
  ~CommandWorker();
  CommandWorker(const CommandWorker&) = delete;
  CommandWorker& operator=(const CommandWorker&) = delete;

  // Caller side: runs the worker until it suspends or finishes.
  void resume();
  bool finished() const { return finished_; }
  CommandWorker* owner() const { return owner_; }

  // Worker side: gives control back to the caller until resume() is called again.
  void suspend();

  // The worker whose thread is running, null on the main thread.
  static CommandWorker* current();

 private:
  void run();

  CommandWorker* owner_;
  std::function<void()> body_;
  std::mutex mutex_;
  std::condition_variable turnChanged_;
  bool workerTurn_ = false;
  bool finished_ = false;
  bool started_ = false;
  std::thread thread_;
};

}  // namespace korva::cmd
