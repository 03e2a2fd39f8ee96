// Pages get a line on their way that loads a script, and the script waits for events. What waits
// holds a thread, so only some may; the others are told to ask again. The files stay as they are.
#include "app/cli/page_server.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

#include <httplib.h>
#include <sys/socket.h>

#include "vlb/gfilesystem.h"
#include "vlb/gpathstring.h"

namespace {

constexpr char const * host = "127.0.0.1";
constexpr char const * script_path = "/_reload.js";
constexpr char const * events_path = "/_changes";
constexpr char const * script_line = "<script src=\"/_reload.js\"></script>\n";
constexpr std::size_t threads = 40, most_waiting = 32;
constexpr std::chrono::seconds longest_wait(20);

// Where the page stood is kept for the page that comes in its place.
constexpr char const * script = R"((function () {
  var key = "reload " + location.pathname, place = sessionStorage.getItem(key), seen = null;
  sessionStorage.removeItem(key);
  if (place) {
    var to = JSON.parse(place);
    history.scrollRestoration = "manual";
    addEventListener("load", function () { scrollTo({left: to[0], top: to[1], behavior: "instant"}); });
  }
  new EventSource("/_changes").onmessage = function (event) {
    if (seen !== null && event.data !== seen) {
      sessionStorage.setItem(key, JSON.stringify([scrollX, scrollY]));
      location.reload();
    }
    seen = event.data;
  };
})();
)";

char const * type_of(std::string const & path) {
  static constexpr std::pair<char const *, char const *> types[] = {
      {".htm", "text/html; charset=utf-8"},
      {".html", "text/html; charset=utf-8"},
      {".css", "text/css; charset=utf-8"},
      {".js", "text/javascript; charset=utf-8"},
      {".json", "application/json"},
      {".txt", "text/plain; charset=utf-8"},
      {".svg", "image/svg+xml"},
      {".png", "image/png"},
      {".jpg", "image/jpeg"},
      {".gif", "image/gif"},
      {".xml", "application/xml"},
  };
  for (auto const & [ending, type] : types)
    if (path.ends_with(ending))
      return type;
  return "application/octet-stream";
}

// In front of the end of the page, or behind all of a broken one.
void add_script(std::string & page) {
  std::size_t const end = page.rfind("</body>");
  page.insert(end == std::string::npos ? page.size() : end, script_line);
}

// The file for a path of a request; empty if there is none below the folder, links followed.
std::string file_for(std::string const & folder, std::string const & path) {
  if (!path.starts_with('/') || path.find('\0') != std::string::npos ||
      path.find("/.") != std::string::npos)
    return {};
  std::unique_ptr<char, decltype(&std::free)> const root(::realpath(folder.c_str(), nullptr),
                                                         &std::free);
  std::string const wish = folder + (path == "/" ? "/index.htm" : path);
  std::unique_ptr<char, decltype(&std::free)> const file(::realpath(wish.c_str(), nullptr),
                                                         &std::free);
  if (!root || !file || !std::string_view(file.get()).starts_with(std::string(root.get()) + "/"))
    return {};
  return gFileSystem::file_exists(gPathstring(file.get())) ? file.get() : std::string();
}

// Without SO_REUSEPORT, which would let two servers have one port.
void take_port_alone(int socket) {
  int const yes = 1;
  ::setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
}

} // namespace

struct gPageServer::State {
  explicit State(std::string name) : folder(std::move(name)) {}

  void set_up();
  bool is_for_us(httplib::Request const & request) const;
  void answer_file(httplib::Request const & request, httplib::Response & response) const;
  void answer_events(httplib::Response & response);
  std::string next_event(bool first);

  std::string const folder;
  httplib::Server server;
  std::thread thread;
  int port = 0;
  std::mutex mutex;
  std::condition_variable changed;
  unsigned results = 1; // that there were
  std::size_t waiting = 0;
  bool ended = false;
};

bool gPageServer::State::is_for_us(httplib::Request const & request) const {
  std::string const name = request.get_header_value("Host"), end = ":" + std::to_string(port);
  return name == host + end || name == "localhost" + end;
}

void gPageServer::State::answer_file(httplib::Request const & request,
                                     httplib::Response & response) const {
  std::string const file = file_for(folder, request.path);
  std::string text;
  if (file.empty() || !gFileSystem::read_file(gPathstring(file), text)) {
    response.status = 404;
    response.set_content("There is no such page.\n", "text/plain; charset=utf-8");
    return;
  }
  std::string const type = type_of(file);
  if (type.starts_with("text/html"))
    add_script(text);
  response.set_content(std::move(text), type);
}

// The first one tells the result that there is, the next one waits for another.
std::string gPageServer::State::next_event(bool first) {
  std::unique_lock lock(mutex);
  if (!first && waiting < most_waiting) {
    ++waiting;
    changed.wait_for(lock, longest_wait,
                     [this, before = results] { return ended || results != before; });
    --waiting;
  }
  return "retry: 500\ndata: " + std::to_string(results) + "\n\n";
}

void gPageServer::State::answer_events(httplib::Response & response) {
  response.set_chunked_content_provider("text/event-stream",
                                        [this](std::size_t offset, httplib::DataSink & sink) {
                                          std::string const event = next_event(offset == 0);
                                          bool const sent = sink.write(event.data(), event.size());
                                          if (offset > 0 || !sent)
                                            sink.done();
                                          return sent;
                                        });
}

void gPageServer::State::set_up() {
  server.new_task_queue = [] { return new httplib::ThreadPool(threads); };
  server.set_socket_options(take_port_alone);
  server.set_read_timeout(1);
  server.set_write_timeout(5);
  server.set_keep_alive_timeout(1);
  server.set_payload_max_length(1024);
  server.set_default_headers(
      {{"Cache-Control", "no-store"}, {"X-Content-Type-Options", "nosniff"}});
  server.set_pre_routing_handler([this](auto const & request, auto & response) {
    bool const reads = request.method == "GET" || request.method == "HEAD";
    if (is_for_us(request) && reads)
      return httplib::Server::HandlerResponse::Unhandled;
    response.status = reads ? 403 : 405;
    return httplib::Server::HandlerResponse::Handled;
  });
  server.Get(script_path, [](auto const &, auto & response) {
    response.set_content(script, "text/javascript; charset=utf-8");
  });
  server.Get(events_path, [this](auto const &, auto & response) { answer_events(response); });
  server.Get(".*",
             [this](auto const & request, auto & response) { answer_file(request, response); });
}

gPageServer::gPageServer(std::string folder) : state_(std::make_unique<State>(std::move(folder))) {
  state_->set_up();
}

gPageServer::~gPageServer() {
  {
    std::lock_guard const lock(state_->mutex);
    state_->ended = true;
  }
  state_->changed.notify_all();
  state_->server.stop();
  if (state_->thread.joinable())
    state_->thread.join();
}

bool gPageServer::start(int port) {
  State & state = *state_;
  state.port = state.server.bind_to_port(host, port) ? port : state.server.bind_to_any_port(host);
  if (state.port <= 0)
    return false;
  state.thread = std::thread([&state] { state.server.listen_after_bind(); });
  // Before it listens it can't be stopped.
  while (!state.server.is_running())
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  return true;
}

std::string gPageServer::address() const {
  return std::string("http://") + host + ":" + std::to_string(state_->port) + "/";
}

void gPageServer::announce() {
  {
    std::lock_guard const lock(state_->mutex);
    ++state_->results;
  }
  state_->changed.notify_all();
}
