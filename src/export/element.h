#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace timeline {

/// One element of an XML document. Texts and values are escaped as they are put in.
class Element {
 public:
  explicit Element(std::string_view tag) : tag_(tag) {}
  Element(std::string_view tag, std::string_view text);
  Element(std::string_view tag, std::integral auto number) : Element(tag, std::to_string(number)) {}

  /// A comment, written as it is given.
  static Element mark(std::string_view comment);

  Element& attribute(std::string_view name, std::string_view value);
  Element& attribute(std::string_view name, std::int64_t value);

  /// Puts `text` right after the attributes that stand so far, unescaped.
  Element& rawAttributes(std::string_view text);

  template <typename... Children>
  Element& add(Children&&... children) {
    (children_.push_back(std::forward<Children>(children)), ...);
    return *this;
  }

  /// The document with this element as its root: declaration, doctype, one element a line, set in
  /// by two blanks a level; elements without grandchildren fill one line.
  std::string document(std::string_view doctype) const;

 private:
  void write(std::string& out, int depth) const;

  std::string tag_, attributes_, text_;
  bool isMark_ = false;
  std::vector<Element> children_;
};

}  // namespace timeline
