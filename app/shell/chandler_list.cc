// Handlers may change the list while they run, so no iterator is kept over a call.

#include "app/shell/chandler_list.h"

#include <algorithm>

namespace {

void forget(std::vector<gMenuEntry> & entries, cHandler const * handler) {
  std::erase_if(entries, [&](gMenuEntry const & entry) {
    return entry.handler &&
           static_cast<void const *>(entry.handler) == dynamic_cast<void const *>(handler);
  });
  for (gMenuEntry & entry : entries)
    forget(entry.entries, handler);
}

template <class Call>
int first_done(std::vector<std::unique_ptr<cHandler>> const & handlers, Call call) {
  for (std::size_t at = 0; at < handlers.size(); ++at) {
    if (int const done = call(*handlers[at]))
      return done;
  }
  return 0;
}

} // namespace

cHandlerList::~cHandlerList() = default;

int cHandlerList::DoCommand(int id) {
  return first_done(handlers_, [id](cHandler & handler) { return handler.DoCommand(id); });
}

int cHandlerList::DoUpdateCommand(int id) {
  return first_done(handlers_, [id](cHandler & handler) { return handler.DoUpdateCommand(id); });
}

int cHandlerList::DoDropFile(char const * path, cPointT2<int> const & place) {
  return first_done(handlers_, [&](cHandler & handler) { return handler.DoDropFile(path, place); });
}

int cHandlerList::DoGetMessageString(int id, CString & text) {
  return first_done(handlers_,
                    [&](cHandler & handler) { return handler.DoGetMessageString(id, text); });
}

void cHandlerList::insert(std::unique_ptr<cHandler> handler) {
  handler->id_ = ++last_id_;
  handlers_.push_back(std::move(handler));
}

std::unique_ptr<cHandler> cHandlerList::remove(cHandler const * handler) {
  auto const at = std::find_if(handlers_.begin(), handlers_.end(),
                               [&](auto const & one) { return one.get() == handler; });
  if (at == handlers_.end())
    return nullptr;
  std::unique_ptr<cHandler> result = std::move(*at);
  handlers_.erase(at);
  forget(menu_, handler);
  result->id_ = 0;
  return result;
}

void cHandlerList::erase() {
  menu_.clear();
  handlers_.clear();
}
