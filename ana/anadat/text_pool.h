// The shared copies of texts that occur many times in a run.
#pragma once

#include <unordered_map>
#include <unordered_set>

#include "ana/anadat/gattributes.h"
#include "store/gglobalobj.h"

// Words are kept once. Tables of attributes are kept once too: a table is reached from a smaller
// one by setting an attribute, and the step is remembered, so that thousands of units with equal
// attributes share one table and setting an attribute copies nothing.
class gTextPool : public gGlobalObj {
public:
  cRef<gString const> word(std::string_view text);
  // `base` with one attribute set; null stands for the table without attributes.
  cRef<gAttrTable const> with(cRef<gAttrTable const> const & base, std::string_view name,
                              std::string_view value);
  void reset() override;

private:
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const {
      return std::hash<std::string_view>()(text);
    }
    std::size_t operator()(cRef<gString const> const & text) const { return (*this)(view(text)); }
  };
  struct Equal {
    using is_transparent = void;
    template <class A, class B> bool operator()(A const & a, B const & b) const {
      return view(a) == view(b);
    }
  };
  static std::string_view view(std::string_view text) { return text; }
  static std::string_view view(cRef<gString const> const & text) { return *text; }

  // Looked up by its texts, so that a known step costs one look-up.
  struct StepText {
    gAttrTable const * base;
    std::string_view name, value;
    bool operator==(StepText const & other) const = default;
  };
  // Holds what it names, so that no address is used again while the step is remembered.
  struct Step {
    cRef<gAttrTable const> base;
    cRef<gString const> name, value;
  };
  static StepText const & texts(StepText const & step) { return step; }
  static StepText texts(Step const & step) { return {step.base.get(), *step.name, *step.value}; }
  struct StepHash {
    using is_transparent = void;
    std::size_t operator()(StepText const & step) const;
    std::size_t operator()(Step const & step) const { return (*this)(texts(step)); }
  };
  struct StepEqual {
    using is_transparent = void;
    template <class A, class B> bool operator()(A const & a, B const & b) const {
      return texts(a) == texts(b);
    }
  };

  std::unordered_set<cRef<gString const>, Hash, Equal> words_;
  std::unordered_map<Step, cRef<gAttrTable const>, StepHash, StepEqual> steps_;
};
