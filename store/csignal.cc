// A link lives in the lists of its two ends. Cutting it takes it out of both and clears its
// pointers, so that a delivery that still holds it passes it over.
#include "store/csignal.h"

bool cConnection::blocked() const {
  return from_->is_blocked() || to_->is_blocked();
}

void cConnection::disconnect() {
  if (!alive())
    return;
  auto const self = cRef<cConnection>::share(this);
  std::erase(from_->connections_, self);
  std::erase(to_->connections_, self);
  from_ = to_ = nullptr;
}

struct cSSBase::Block : cShared {
  explicit Block(cRef<BlockCount> count) : count_(std::move(count)) { ++count_->count; }
  Block(Block const &) = delete;
  Block & operator=(Block const &) = delete;
  ~Block() override { --count_->count; }

  cRef<BlockCount> count_;
};

void cSSBase::connect(cSSBase const & other, bool, cConnection *, cConnection *) const {
  auto link = make_ref<cConnection>(this, &other);
  connections_.push_back(link);
  if (&other != this)
    other.connections_.push_back(link);
}

void cSSBase::disconnect(cSSBase const & other, bool) const {
  Links const links = connections_;
  for (cRef<cConnection> const & link : links)
    if (link->from() == &other || link->to() == &other)
      link->disconnect();
}

void cSSBase::disconnect() const {
  Links const links = connections_;
  for (cRef<cConnection> const & link : links)
    link->disconnect();
}

cRef<cShared> cSSBase::block() const {
  if (!block_count_)
    block_count_ = make_ref<BlockCount>();
  return make_ref<Block>(block_count_);
}
