// The watch: what it shows, what it refuses, and how it ends.

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <thread>

#include <httplib.h>

#include "program.h"

namespace {

using namespace std::chrono_literals;

// A watch under way, with a client for its server.
class Watched {
public:
  Watched(Sandbox const & box, std::string const & command, std::string const & out = "out.txt")
      : child_(box.start(command + " >" + out + " 2>told.txt")) {
    box.wait_for(out, "(Ctrl-C ends)");
    std::string const text = box.read(out);
    port_ = std::stoi(text.substr(text.rfind(':', text.find(" (")) + 1));
    client_ = std::make_unique<httplib::Client>("127.0.0.1", port_);
  }

  // The answer's status and text; a Host of its own may be given.
  std::pair<int, std::string> get(std::string const & path, std::string const & host = {}) {
    httplib::Headers headers;
    if (!host.empty())
      headers.emplace("Host", host);
    httplib::Result const result = client_->Get(path, headers);
    return result ? std::pair(result->status, result->body) : std::pair(-1, std::string());
  }
  bool comes(std::string const & path, std::string const & text) {
    for (int i = 0; i < 600; ++i, std::this_thread::sleep_for(50ms))
      if (get(path).second.find(text) != std::string::npos)
        return true;
    return false;
  }
  int port() const { return port_; }
  int end() {
    kill(child_, SIGINT);
    return Sandbox::end_of(child_);
  }

private:
  int child_;
  int port_ = 0;
  std::unique_ptr<httplib::Client> client_;
};

TEST(watch, shows_what_changes_and_stops_in_an_orderly_way) {
  Sandbox box;
  box.write("src/a.h", "/// First words.\nclass A {};\n");
  Watched watched(box, "quick src -o out --watch");
  EXPECT_TRUE(watched.comes("/A.htm", "First words"));
  std::string const page = watched.get("/A.htm").second;
  EXPECT_NE(page.find("<script src=\"/_reload.js\">"), std::string::npos);
  EXPECT_EQ(box.read("out/htm/A.htm").find("_reload"), std::string::npos);
  EXPECT_EQ(watched.get("/").first, 200);
  std::string events;
  std::thread waiting([&] {
    httplib::Client client("127.0.0.1", watched.port());
    client.set_read_timeout(60);
    // Each answer tells the result that there is and the next one, as a browser asks again.
    for (int i = 0; i < 5 && events.find("data: 3\n") == std::string::npos; ++i)
      client.Get("/_changes", [&](char const * text, std::size_t size) {
        events.append(text, size);
        return true;
      });
  });
  std::this_thread::sleep_for(300ms);
  box.write("src/deep/b.h", "/// In a new folder.\nclass B {};\n");
  EXPECT_TRUE(watched.comes("/B.htm", "In a new folder"));
  waiting.join();
  // The pages are there a moment before the first result is announced.
  EXPECT_NE(events.find("data: 2\n\nretry: 500\ndata: 3\n"), std::string::npos) << events;
  box.write("src/a.h", "/// Second words.\nclass A {};\n");
  EXPECT_TRUE(watched.comes("/A.htm", "Second words"));
  box.wait_for("told.txt", "Changed: " + box.path("src/a.h"));
  std::filesystem::remove_all(box.path("src"));
  box.wait_for("told.txt", "It is looked for again.");
  EXPECT_EQ(watched.get("/A.htm").first, 200) << "a failed run leaves the pages";
  box.write("src/c.h", "/// Third words.\nclass C {};\n");
  EXPECT_TRUE(watched.comes("/C.htm", "Third words"));
  EXPECT_EQ(watched.end(), 130);
}

TEST(watch, serves_nothing_but_its_result_and_only_to_this_machine) {
  Sandbox box;
  box.make_project();
  box.write("secret.txt", "secret");
  Watched watched(box, "watch p.vlp");
  ASSERT_TRUE(watched.comes("/index.htm", "<html"));
  box.write("out/htm/.hidden", "secret");
  std::filesystem::create_symlink(box.path("secret.txt"), box.path("out/htm/link.txt"));
  for (char const * path : {"/../../secret.txt", "/%2e%2e/%2e%2e/secret.txt",
                            "/..%2f..%2fsecret.txt", "/link.txt", "/.hidden", "/_files/", "/_files",
                            "/no.htm", "/index.htm/", "/index.htm%00.txt", "//etc/passwd"})
    EXPECT_EQ(watched.get(path).first, 404) << path;
  std::string const port = ":" + std::to_string(watched.port());
  EXPECT_EQ(watched.get("/", "localhost" + port).first, 200);
  for (std::string const & host :
       {std::string("evil.example"), "evil.example" + port, std::string("127.0.0.1:1")})
    EXPECT_EQ(watched.get("/", host).first, 403) << host;
  httplib::Client client("127.0.0.1", watched.port());
  EXPECT_EQ(client.Post("/", "text", "text/plain")->status, 405);
  // More of those that wait than there are threads don't keep the others out.
  std::vector<std::unique_ptr<httplib::Client>> idle;
  std::vector<std::thread> waiting;
  for (int i = 0; i < 60; ++i) {
    idle.push_back(std::make_unique<httplib::Client>("127.0.0.1", watched.port()));
    waiting.emplace_back([&one = *idle.back()] { one.Get("/_changes"); });
  }
  EXPECT_TRUE(watched.comes("/index.htm", "<html"));
  Watched second(box, "build p.vlp --watch -o other", "second.txt");
  EXPECT_NE(second.port(), watched.port());
  EXPECT_EQ(second.end(), 130);
  EXPECT_EQ(watched.end(), 130);
  for (std::thread & one : waiting)
    one.join();
}

} // namespace
