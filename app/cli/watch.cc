// Signals are read from a descriptor between the notes of the folders, so that each comes at a
// moment that is good for it.
#include "app/cli/watch.h"

#include <csignal>
#include <iostream>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/signalfd.h>
#include <sys/wait.h>
#include <unistd.h>

#include "app/cli/exit_status.h"
#include "app/cli/page_server.h"
#include "app/options/options.h"
#include "app/options/project.h"
#include "app/options/run_input.h"
#include "vlb/folder.h"
#include "vlb/gfilesystem.h"
#include "vlb/gmsghandler.h"

namespace {

constexpr std::chrono::milliseconds rest(100);
constexpr std::size_t most_told = 5;

// Blocks the signals that end the watch, for this thread and those that it starts.
class Signals {
public:
  Signals() {
    sigemptyset(&set_);
    for (int const signal : {SIGINT, SIGTERM, SIGHUP})
      sigaddset(&set_, signal);
    sigprocmask(SIG_BLOCK, &set_, &before_);
    descriptor_ = ::signalfd(-1, &set_, SFD_CLOEXEC | SFD_NONBLOCK);
  }
  Signals(Signals const &) = delete;
  Signals & operator=(Signals const &) = delete;
  ~Signals() {
    ::close(descriptor_);
    sigprocmask(SIG_SETMASK, &before_, nullptr);
  }
  int descriptor() const { return descriptor_; }
  sigset_t const & before() const { return before_; }

private:
  sigset_t set_, before_;
  int descriptor_ = -1;
};

// The command without what the watch takes for itself.
std::vector<std::string> words_of_run(std::vector<std::string> words) {
  std::vector<std::string> run;
  for (std::size_t i = 0; i < words.size(); ++i)
    if (i == 0 && words[i] == "watch")
      run.emplace_back("build");
    else if (words[i] == "--port")
      ++i;
    else if (words[i] != "--watch" && !words[i].starts_with("--port="))
      run.push_back(std::move(words[i]));
  return run;
}

// In a process group of its own: an interrupt from the terminal comes to the watch alone, which
// hands it on once. Nobody answers questions there. The number, or -1.
pid_t start(std::vector<std::string> words, Signals const & signals) {
  words.insert(words.begin(), "vellumar");
  std::vector<char *> arguments;
  for (std::string & word : words)
    arguments.push_back(word.data());
  arguments.push_back(nullptr);
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK);
  posix_spawnattr_setsigmask(&attributes, &signals.before());
  posix_spawn_file_actions_t files;
  posix_spawn_file_actions_init(&files);
  posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  pid_t child = -1;
  if (posix_spawn(&child, "/proc/self/exe", &files, &attributes, arguments.data(), environ) != 0)
    child = -1;
  posix_spawn_file_actions_destroy(&files);
  posix_spawnattr_destroy(&attributes);
  return child;
}

// The status of a run. A signal that comes meanwhile is handed on, and `stopped` is set.
int wait_for(pid_t child, Signals const & signals, bool & stopped) {
  int status = 0;
  for (;;) {
    if (waitpid(child, &status, WNOHANG) == child)
      return WIFEXITED(status) ? WEXITSTATUS(status) : exit_failed;
    pollfd wait = {signals.descriptor(), POLLIN, 0};
    if (::poll(&wait, 1, 10) <= 0)
      continue;
    signalfd_siginfo signal{};
    if (::read(signals.descriptor(), &signal, sizeof signal) > 0) {
      ::kill(child, SIGINT);
      stopped = true;
    }
  }
}

void tell_changes(std::set<std::string> const & changed, gCommandContext & context) {
  std::size_t left = most_told;
  for (std::string const & path : changed) {
    if (left-- == 0) {
      context.outside.tell("and " + std::to_string(changed.size() - most_told) + " more");
      return;
    }
    gString shown;
    Vlb::add_shown(shown, path);
    context.outside.tell("Changed: " + shown);
  }
}

class Watch {
public:
  Watch(std::string const & result, std::function<gWatchedPlaces()> const & places,
        gCommandContext & context)
      : places_(places),
        context_(context),
        server_(result) {}

  int run(int port) {
    if (!folders_.good() || signals_.descriptor() < 0) {
      context_.outside.tell("The system lets no more programs watch folders "
                            "(fs.inotify.max_user_instances).");
      return exit_failed;
    }
    if (server_.start(port))
      std::cout << "Serving " << server_.address() << " (Ctrl-C ends)" << std::endl;
    else
      context_.outside.tell("There is no free port: the pages aren't served.");
    // What changes during a run is seen by the watch, which is there before.
    for (;;) {
      look();
      make();
      std::set<std::string> const changed =
          stopped_ ? std::set<std::string>() : folders_.wait(signals_.descriptor(), rest);
      if (changed.empty())
        return exit_interrupted;
      tell_changes(changed, context_);
    }
  }

private:
  void look() {
    std::vector<std::string> const refused = folders_.watch(places_());
    if (refused.empty())
      return;
    context_.outside.tell("Cannot watch " + refused.front() +
                          (folders_.full() ? ": no more folders can be watched "
                                             "(fs.inotify.max_user_watches)"
                                           : ". It is looked for again."));
  }

  void make() {
    pid_t const child = start(words_of_run(context_.words), signals_);
    int const status = child < 0 ? exit_failed : wait_for(child, signals_, stopped_);
    if (status == exit_ok || status == exit_reports)
      server_.announce();
    else if (!stopped_)
      context_.outside.tell("The pages stay as they were. The next change is waited for.");
  }

  std::function<gWatchedPlaces()> const & places_;
  gCommandContext & context_;
  Signals signals_; // before any thread
  gPageServer server_;
  gFolderWatch folders_;
  bool stopped_ = false;
};

} // namespace

void gWatchOptions::add_to(CLI::App & command, bool switchable) {
  if (switchable)
    command.add_flag("--watch", watch, "Go on, and run again whenever a source changes");
  command
      .add_option("--port", port, "Where a watch serves the pages on this machine; 8484 without it")
      ->check(CLI::Range(1, 65535))
      ->type_name("N")
      ->allow_extra_args(false);
}

gWatchedPlaces places_of_project() {
  gRunInput const input = Vapp::run_input();
  gWatchedPlaces places;
  places.leave_out = input.out_dir;
  places.files = {input.script, gPathstring(Vapp::project().file())};
  std::set<std::string> folders;
  for (gFileGroup const & group : input.groups) {
    std::list<gPathstring> paths;
    gFileSystem::split_path_list(group.paths, paths, false);
    for (gPathstring & path : paths)
      for (gPathstring const & folder :
           Vlb::expand_folders(path.make_absolute(input.root).normalize(true)))
        folders.insert(folder);
  }
  places.folders.assign(folders.begin(), folders.end());
  return places;
}

int watch(gWatchOptions const & options, std::string const & result,
          std::function<gWatchedPlaces()> const & places, gCommandContext & context) {
  return Watch(result, places, context).run(options.port);
}
