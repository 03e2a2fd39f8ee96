// Finished pages for the browsers of this machine, which show a new result as soon as it is there.
#pragma once

#include <memory>
#include <string>

// Serves one folder on 127.0.0.1 from threads of its own. Answers nothing but files below it, and
// none to a request that calls this machine by another name: a page from elsewhere must not read
// them by a name of its own that leads here.
class gPageServer {
public:
  explicit gPageServer(std::string folder); // absolute; may come and go
  ~gPageServer();
  gPageServer(gPageServer const &) = delete;
  gPageServer & operator=(gPageServer const &) = delete;

  // Takes the port or, where another one has it, any. False if there is none at all.
  bool start(int port);
  std::string address() const; // of the start page
  // The folder has a new result: open pages load themselves again.
  void announce();

private:
  struct State;
  std::unique_ptr<State> state_;
};
