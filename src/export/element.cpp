#include "export/element.h"

#include <algorithm>

#include "export/text.h"

namespace timeline {

Element::Element(std::string_view tag, std::string_view text) : tag_(tag), text_(escaped(text)) {}

Element Element::mark(std::string_view comment) {
  Element result("");
  result.text_ = comment;
  result.isMark_ = true;
  return result;
}

Element& Element::attribute(std::string_view name, std::string_view value) {
  return rawAttributes(
      std::string(" ").append(name).append("=\"").append(escaped(value)).append("\""));
}

Element& Element::attribute(std::string_view name, std::int64_t value) {
  return attribute(name, std::string_view(std::to_string(value)));
}

Element& Element::rawAttributes(std::string_view text) {
  attributes_ += text;
  return *this;
}

std::string Element::document(std::string_view doctype) const {
  std::string out = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE ";
  out.append(doctype).append(">\n");
  write(out, 0);
  return out + '\n';
}

void Element::write(std::string& out, int depth) const {
  if (isMark_) {
    out += text_;
    return;
  }
  out.append("<").append(tag_).append(attributes_);
  if (children_.empty() && text_.empty()) {
    out += "/>";
    return;
  }
  out.append(">").append(text_);
  const bool leaves = std::ranges::all_of(
      children_, [](const Element& child) { return child.children_.empty() && !child.isMark_; });
  const auto startLine = [&](int level) {
    if (!leaves) out.append("\n").append(2 * static_cast<std::size_t>(level), ' ');
  };
  for (const Element& child : children_) {
    startLine(depth + 1);
    child.write(out, depth + 1);
  }
  startLine(depth);
  out.append("</").append(tag_).append(">");
}

}  // namespace timeline
