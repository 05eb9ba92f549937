#include "tests/hosts/shelf.h"

#include <stdexcept>
#include <string_view>

namespace quorbind::testing {

namespace {

constexpr int kFewestBooks = 20;
constexpr int kOtherLengths = 101;

int booksIn(Save save) {
  return kFewestBooks + (37 * save.number + 11 * save.writer) % kOtherLengths;
}

std::string markOf(Save save) {
  return std::to_string(save.writer) + "-" + std::to_string(save.number);
}

Save saveMarked(const std::string& mark) {
  const std::size_t dash = mark.find('-');
  return {std::stoi(mark.substr(0, dash)), std::stoi(mark.substr(dash + 1))};
}

}  // namespace

std::string shelfAfter(Save save) {
  std::string text = "<Quor_Master>\r\n";
  for (int book = 0; book < booksIn(save); ++book) {
    text += "\t<Book>" + markOf(save) + "</Book>\r\n";
  }
  return text + "</Quor_Master>\r\n";
}

Save saveOf(const XmlDocument& document) {
  const std::vector<XmlNode> books = document.documentElement().children();
  if (books.empty()) {
    throw std::runtime_error("a file without books");
  }
  const std::string mark = books.front().text();
  const Save save = saveMarked(mark);
  for (const XmlNode& book : books) {
    if (book.text() != mark) {
      throw std::runtime_error("a file of the saves " + mark + " and " + book.text());
    }
  }
  if (static_cast<int>(books.size()) != booksIn(save)) {
    throw std::runtime_error("a part of the save " + mark);
  }
  return save;
}

void putOnShelf(XmlDocument& document, Save save) {
  const XmlNode root = document.documentElement();
  for (const XmlNode& book : root.children()) {
    root.remove(book);
  }
  for (int count = 0; count < booksIn(save); ++count) {
    const XmlNode book = document.createElement("Book");
    book.setText(markOf(save));
    root.append(book);
  }
}

}  // namespace quorbind::testing
