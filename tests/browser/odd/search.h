/* What the search has to tell apart. */

/** Bytes in a row, with a tail of quicksilver. */
class Buffer {
public:
  /** Opens nothing. */
  bool open(int handle, char * name);
  bool operator==(Buffer const & other) const;
};

namespace inner {
/** A stream over memory. */
class basic_memory_stream_buf {};
Buffer & operator<<(Buffer & out, int number);
/** Gives a buffer back. */
auto make_one(long size) -> Buffer;
void open();
} // namespace inner

/** Colours of the sky. */
enum class Sky { azure = 3, leaden };
