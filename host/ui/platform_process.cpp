// Programs started through posix_spawn.
#include "ui/platform_process.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <sstream>

extern char** environ;

namespace korva::ui {
namespace {

// Detached programs, reaped when they have ended so that none stays a zombie for long.
std::vector<pid_t>& startedPrograms() {
  static std::vector<pid_t> started;
  return started;
}

void reapEnded() {
  std::erase_if(startedPrograms(), [](pid_t pid) {
    int status = 0;
    return waitpid(pid, &status, WNOHANG) != 0;
  });
}

std::vector<char*> argumentVector(const std::vector<std::string>& arguments) {
  std::vector<char*> vector;
  for (const std::string& argument : arguments)
    vector.push_back(const_cast<char*>(argument.c_str()));
  vector.push_back(nullptr);
  return vector;
}

bool isExecutable(const std::string& path) {
  return !path.empty() && ::access(path.c_str(), X_OK) == 0;
}

// The program's standard streams: nothing in, and its output kept out of korva's
// transcript unless outputTo names a descriptor for it.
bool setUpStreams(posix_spawn_file_actions_t& actions, int outputTo, int closeInChild) {
  if (posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0) != 0) return false;
  if (outputTo >= 0) {
    if (posix_spawn_file_actions_adddup2(&actions, outputTo, 1) != 0) return false;
  } else if (posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0) != 0) {
    return false;
  }
  if (posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0) != 0) return false;
  if (closeInChild >= 0 && posix_spawn_file_actions_addclose(&actions, closeInChild) != 0) {
    return false;
  }
  return true;
}

// Starts the program; 0 when it can't be started.
pid_t spawn(const std::vector<std::string>& arguments, bool ownSession, int outputTo,
            int closeInChild) {
  if (arguments.empty()) return 0;
  const std::string program = findProgram(arguments.front());
  if (program.empty()) return 0;
  posix_spawn_file_actions_t actions;
  posix_spawnattr_t attributes;
  posix_spawn_file_actions_init(&actions);
  posix_spawnattr_init(&attributes);
  if (ownSession) posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID);
  pid_t pid = 0;
  std::vector<char*> vector = argumentVector(arguments);
  const bool ready = setUpStreams(actions, outputTo, closeInChild);
  if (!ready ||
      posix_spawn(&pid, program.c_str(), &actions, &attributes, vector.data(), environ) != 0) {
    pid = 0;
  }
  posix_spawn_file_actions_destroy(&actions);
  posix_spawnattr_destroy(&attributes);
  return pid;
}

}  // namespace

std::vector<std::string> splitCommandLine(const std::string& commandLine) {
  std::vector<std::string> words;
  std::string word;
  bool inWord = false;
  bool quoted = false;
  for (char c : commandLine) {
    if (c == '"') {
      quoted = !quoted;
      inWord = true;
    } else if ((c == ' ' || c == '\t') && !quoted) {
      if (inWord) words.push_back(word);
      word.clear();
      inWord = false;
    } else {
      word += c;
      inWord = true;
    }
  }
  if (inWord) words.push_back(word);
  return words;
}

std::string findProgram(const std::string& name) {
  if (name.empty()) return {};
  if (name.find('/') != std::string::npos) return isExecutable(name) ? name : std::string();
  const char* path = std::getenv("PATH");
  std::istringstream folders(path ? path : "/usr/local/bin:/usr/bin:/bin");
  std::string folder;
  while (std::getline(folders, folder, ':')) {
    const std::string candidate = (folder.empty() ? std::string(".") : folder) + "/" + name;
    if (isExecutable(candidate)) return candidate;
  }
  return {};
}

bool startDetached(const std::vector<std::string>& arguments) {
  reapEnded();
  const pid_t pid = spawn(arguments, true, -1, -1);
  if (pid == 0) return false;
  startedPrograms().push_back(pid);
  return true;
}

std::optional<std::string> runForOutput(const std::vector<std::string>& arguments) {
  int ends[2];
  if (::pipe2(ends, O_CLOEXEC) != 0) return std::nullopt;
  const pid_t pid = spawn(arguments, false, ends[1], ends[0]);
  ::close(ends[1]);
  if (pid == 0) {
    ::close(ends[0]);
    return std::nullopt;
  }
  std::string output;
  char chunk[512];
  for (ssize_t count; (count = ::read(ends[0], chunk, sizeof chunk)) != 0;) {
    if (count < 0) {
      if (errno == EINTR) continue;
      break;
    }
    output.append(chunk, static_cast<size_t>(count));
  }
  ::close(ends[0]);
  int status = 0;
  while (waitpid(pid, &status, 0) < 0 && errno == EINTR) {
  }
  if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) return std::nullopt;
  return output;
}

}  // namespace korva::ui
