// The words of Pascal that a reader of declarations looks at.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace Decl {

// What a word is besides its meaning; a bit each.
enum gPasWordMark : std::uint8_t {
  pas_name = 0,           // a word of context: anywhere else it is a name like any other
  pas_reserved = 1 << 0,  // never a name, but behind "&" or "."
  pas_head = 1 << 1,      // at a line's head it begins a declaration or a section
  pas_directive = 1 << 2, // may follow the head of a routine
  pas_access = 1 << 3,    // opens a section of a class
  pas_specifier = 1 << 4, // of a property
};

// One row a word: enumerator, spelling, marks.
#define VLR_PAS_WORDS(ROW)                                                                         \
  ROW(absolute, "absolute", pas_name)                                                              \
  ROW(abstract, "abstract", pas_directive)                                                         \
  ROW(alias, "alias", pas_directive)                                                               \
  ROW(and_, "and", pas_reserved)                                                                   \
  ROW(array, "array", pas_reserved)                                                                \
  ROW(as, "as", pas_reserved)                                                                      \
  ROW(asm_, "asm", pas_reserved)                                                                   \
  ROW(assembler, "assembler", pas_directive)                                                       \
  ROW(async, "async", pas_directive)                                                               \
  ROW(automated, "automated", pas_access)                                                          \
  ROW(begin, "begin", pas_reserved | pas_head)                                                     \
  ROW(bitpacked, "bitpacked", pas_name)                                                            \
  ROW(case_, "case", pas_reserved)                                                                 \
  ROW(cblock, "cblock", pas_directive)                                                             \
  ROW(cdecl_, "cdecl", pas_directive)                                                              \
  ROW(class_, "class", pas_reserved)                                                               \
  ROW(compilerproc, "compilerproc", pas_directive)                                                 \
  ROW(const_, "const", pas_reserved | pas_head)                                                    \
  ROW(constref, "constref", pas_name)                                                              \
  ROW(constructor, "constructor", pas_reserved | pas_head)                                         \
  ROW(contains, "contains", pas_name)                                                              \
  ROW(cppclass, "cppclass", pas_name)                                                              \
  ROW(cppdecl, "cppdecl", pas_directive)                                                           \
  ROW(cvar, "cvar", pas_name)                                                                      \
  ROW(default_, "default", pas_directive | pas_specifier)                                          \
  ROW(delayed, "delayed", pas_directive)                                                           \
  ROW(deprecated, "deprecated", pas_directive | pas_specifier)                                     \
  ROW(destructor, "destructor", pas_reserved | pas_head)                                           \
  ROW(dispid, "dispid", pas_directive | pas_specifier)                                             \
  ROW(dispinterface, "dispinterface", pas_name)                                                    \
  ROW(div, "div", pas_reserved)                                                                    \
  ROW(do_, "do", pas_reserved)                                                                     \
  ROW(downto, "downto", pas_reserved)                                                              \
  ROW(dynamic, "dynamic", pas_directive)                                                           \
  ROW(else_, "else", pas_reserved)                                                                 \
  ROW(end, "end", pas_reserved)                                                                    \
  ROW(enumerator, "enumerator", pas_directive | pas_specifier)                                     \
  ROW(except, "except", pas_reserved)                                                              \
  ROW(experimental, "experimental", pas_directive | pas_specifier)                                 \
  ROW(export_, "export", pas_directive)                                                            \
  ROW(exports, "exports", pas_reserved | pas_head)                                                 \
  ROW(external, "external", pas_directive)                                                         \
  ROW(far, "far", pas_directive)                                                                   \
  ROW(far16, "far16", pas_directive)                                                               \
  ROW(file, "file", pas_reserved)                                                                  \
  ROW(final, "final", pas_directive)                                                               \
  ROW(finalization, "finalization", pas_reserved | pas_head)                                       \
  ROW(finally, "finally", pas_reserved)                                                            \
  ROW(for_, "for", pas_reserved)                                                                   \
  ROW(forward, "forward", pas_directive)                                                           \
  ROW(function, "function", pas_reserved | pas_head)                                               \
  ROW(generic, "generic", pas_name)                                                                \
  ROW(goto_, "goto", pas_reserved)                                                                 \
  ROW(hardfloat, "hardfloat", pas_directive)                                                       \
  ROW(helper, "helper", pas_name)                                                                  \
  ROW(huge, "huge", pas_directive)                                                                 \
  ROW(if_, "if", pas_reserved)                                                                     \
  ROW(implementation, "implementation", pas_reserved | pas_head)                                   \
  ROW(implements, "implements", pas_specifier)                                                     \
  ROW(in, "in", pas_reserved)                                                                      \
  ROW(index, "index", pas_specifier)                                                               \
  ROW(inherited, "inherited", pas_reserved)                                                        \
  ROW(initialization, "initialization", pas_reserved | pas_head)                                   \
  ROW(inline_, "inline", pas_directive)                                                            \
  ROW(interface, "interface", pas_reserved | pas_head)                                             \
  ROW(internconst, "internconst", pas_directive)                                                   \
  ROW(internproc, "internproc", pas_directive)                                                     \
  ROW(interrupt, "interrupt", pas_directive)                                                       \
  ROW(iocheck, "iocheck", pas_directive)                                                           \
  ROW(is, "is", pas_reserved)                                                                      \
  ROW(label, "label", pas_reserved | pas_head)                                                     \
  ROW(library, "library", pas_directive | pas_specifier)                                           \
  ROW(local, "local", pas_directive)                                                               \
  ROW(message, "message", pas_directive)                                                           \
  ROW(mod, "mod", pas_reserved)                                                                    \
  ROW(ms_abi_cdecl, "ms_abi_cdecl", pas_directive)                                                 \
  ROW(ms_abi_default, "ms_abi_default", pas_directive)                                             \
  ROW(mwpascal, "mwpascal", pas_directive)                                                         \
  ROW(name, "name", pas_name)                                                                      \
  ROW(near, "near", pas_directive)                                                                 \
  ROW(nil, "nil", pas_reserved)                                                                    \
  ROW(nodefault, "nodefault", pas_specifier)                                                       \
  ROW(noinline, "noinline", pas_directive)                                                         \
  ROW(noreturn, "noreturn", pas_directive)                                                         \
  ROW(nostackframe, "nostackframe", pas_directive)                                                 \
  ROW(not_, "not", pas_reserved)                                                                   \
  ROW(objccategory, "objccategory", pas_name)                                                      \
  ROW(objcclass, "objcclass", pas_name)                                                            \
  ROW(objcprotocol, "objcprotocol", pas_name)                                                      \
  ROW(object, "object", pas_reserved)                                                              \
  ROW(of, "of", pas_reserved)                                                                      \
  ROW(oldfpccall, "oldfpccall", pas_directive)                                                     \
  ROW(operator_, "operator", pas_name)                                                             \
  ROW(or_, "or", pas_reserved)                                                                     \
  ROW(out, "out", pas_name)                                                                        \
  ROW(overload, "overload", pas_directive)                                                         \
  ROW(override_, "override", pas_directive)                                                        \
  ROW(package, "package", pas_name)                                                                \
  ROW(packed, "packed", pas_reserved)                                                              \
  ROW(pascal, "pascal", pas_directive)                                                             \
  ROW(platform, "platform", pas_directive | pas_specifier)                                         \
  ROW(private_, "private", pas_access)                                                             \
  ROW(procedure, "procedure", pas_reserved | pas_head)                                             \
  ROW(program, "program", pas_reserved)                                                            \
  ROW(property, "property", pas_reserved | pas_head)                                               \
  ROW(protected_, "protected", pas_access)                                                         \
  ROW(public_, "public", pas_directive | pas_access)                                               \
  ROW(published, "published", pas_access)                                                          \
  ROW(raise, "raise", pas_reserved)                                                                \
  ROW(read, "read", pas_specifier)                                                                 \
  ROW(readonly, "readonly", pas_specifier)                                                         \
  ROW(record, "record", pas_reserved)                                                              \
  ROW(reference, "reference", pas_name)                                                            \
  ROW(register_, "register", pas_directive)                                                        \
  ROW(reintroduce, "reintroduce", pas_directive)                                                   \
  ROW(repeat, "repeat", pas_reserved)                                                              \
  ROW(requires_, "requires", pas_name)                                                             \
  ROW(resourcestring, "resourcestring", pas_reserved | pas_head)                                   \
  ROW(rtlproc, "rtlproc", pas_directive)                                                           \
  ROW(safecall, "safecall", pas_directive)                                                         \
  ROW(saveregisters, "saveregisters", pas_directive)                                               \
  ROW(sealed, "sealed", pas_name)                                                                  \
  ROW(section, "section", pas_directive)                                                           \
  ROW(set, "set", pas_reserved)                                                                    \
  ROW(shl, "shl", pas_reserved)                                                                    \
  ROW(shr, "shr", pas_reserved)                                                                    \
  ROW(softfloat, "softfloat", pas_directive)                                                       \
  ROW(specialize, "specialize", pas_name)                                                          \
  ROW(static_, "static", pas_directive)                                                            \
  ROW(stdcall, "stdcall", pas_directive)                                                           \
  ROW(stored, "stored", pas_specifier)                                                             \
  ROW(strict, "strict", pas_name)                                                                  \
  ROW(syscall, "syscall", pas_directive)                                                           \
  ROW(sysv_abi_cdecl, "sysv_abi_cdecl", pas_directive)                                             \
  ROW(sysv_abi_default, "sysv_abi_default", pas_directive)                                         \
  ROW(systrap, "systrap", pas_directive)                                                           \
  ROW(then, "then", pas_reserved)                                                                  \
  ROW(threadvar, "threadvar", pas_reserved | pas_head)                                             \
  ROW(to, "to", pas_reserved)                                                                      \
  ROW(try_, "try", pas_reserved)                                                                   \
  ROW(type, "type", pas_reserved | pas_head)                                                       \
  ROW(unimplemented, "unimplemented", pas_directive | pas_specifier)                               \
  ROW(unit, "unit", pas_reserved)                                                                  \
  ROW(unsafe, "unsafe", pas_directive)                                                             \
  ROW(until, "until", pas_reserved)                                                                \
  ROW(uses, "uses", pas_reserved | pas_head)                                                       \
  ROW(var, "var", pas_reserved | pas_head)                                                         \
  ROW(varargs, "varargs", pas_directive)                                                           \
  ROW(vectorcall, "vectorcall", pas_directive)                                                     \
  ROW(virtual_, "virtual", pas_directive)                                                          \
  ROW(weakexternal, "weakexternal", pas_directive)                                                 \
  ROW(while_, "while", pas_reserved)                                                               \
  ROW(winapi, "winapi", pas_directive)                                                             \
  ROW(with, "with", pas_reserved)                                                                  \
  ROW(write, "write", pas_specifier)                                                               \
  ROW(writeonly, "writeonly", pas_specifier)                                                       \
  ROW(xor_, "xor", pas_reserved)

enum class gPasWord : std::uint8_t {
  none, // a name
#define VLR_PAS_ENUMERATOR(word, spelling, marks) word,
  VLR_PAS_WORDS(VLR_PAS_ENUMERATOR)
#undef VLR_PAS_ENUMERATOR
};

// The word with this spelling, in any case of letters; none for all others.
gPasWord pas_word(std::string_view spelling);
// Union of gPasWordMark.
std::uint8_t pas_word_marks(gPasWord word);
// Comparison without regard to the case of ASCII letters; `lower` is in small ones.
bool same_word(std::string_view text, std::string_view lower);
std::string small_letters(std::string_view text); // of ASCII

} // namespace Decl
