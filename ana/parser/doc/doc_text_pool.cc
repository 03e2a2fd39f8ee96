// A slot keeps the last text that fell into it, which serves words that come again soon.
#include "ana/parser/doc/doc_text_pool.h"

#include "store/ghash.h"

cRef<gString> doc_text_pool::get(std::string_view text) {
  cRef<gString> & slot = (*texts_)[chash_fun<std::string>()(text) % slots];
  if (!slot || *slot != text)
    slot = make_ref<gString>(text);
  return slot;
}
