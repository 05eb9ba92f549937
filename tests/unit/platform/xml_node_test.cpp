#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/xml_document.h"
#include "tests/support/raised_error.h"

namespace quorbind::testing {

namespace {

using ::testing::ElementsAre;

constexpr std::int32_t kObjectNotSet = 91;

/// A node that knows its name, its kind and who comes next.
class ListedNode final : public XmlNode::Body {
 public:
  enum class Kind { kElement, kOther };

  ListedNode(std::string name, Kind kind, XmlNode firstChild, XmlNode nextSibling)
      : name_(std::move(name)),
        kind_(kind),
        firstChild_(std::move(firstChild)),
        nextSibling_(std::move(nextSibling)) {}

  [[nodiscard]] bool isElement() const override { return kind_ == Kind::kElement; }
  [[nodiscard]] std::string name() const override { return name_; }
  [[nodiscard]] std::string text() const override { return "text of " + name_; }
  void setText(std::string_view /*text*/) override {}
  [[nodiscard]] XmlNode firstChild() const override { return firstChild_; }
  [[nodiscard]] XmlNode nextSibling() const override { return nextSibling_; }
  [[nodiscard]] XmlNode firstAttribute() const override { return {}; }
  void setAttribute(std::string_view /*name*/, std::string_view /*value*/) override {}
  [[nodiscard]] XmlNode attribute(std::string_view /*name*/) const override { return {}; }
  [[nodiscard]] std::vector<XmlNode> selectAll(std::string_view query) const override {
    return query == "*" ? children() : std::vector<XmlNode>();
  }
  void insertBefore(const XmlNode& /*child*/, const XmlNode& /*reference*/) override {}
  void removeChild(const XmlNode& /*child*/) override {}

 private:
  [[nodiscard]] std::vector<XmlNode> children() const {
    std::vector<XmlNode> nodes;
    for (XmlNode node = firstChild_; node; node = node.nextSibling()) {
      nodes.push_back(node);
    }
    return nodes;
  }

  std::string name_;
  Kind kind_;
  XmlNode firstChild_;
  XmlNode nextSibling_;
};

XmlNode element(std::string name, XmlNode firstChild = {}, XmlNode nextSibling = {}) {
  return XmlNode(std::make_shared<ListedNode>(
      std::move(name), ListedNode::Kind::kElement, std::move(firstChild), std::move(nextSibling)));
}

XmlNode instruction(std::string name, XmlNode nextSibling) {
  return XmlNode(std::make_shared<ListedNode>(
      std::move(name), ListedNode::Kind::kOther, XmlNode(), std::move(nextSibling)));
}

std::vector<std::string> namesOf(const std::vector<XmlNode>& nodes) {
  std::vector<std::string> names;
  names.reserve(nodes.size());
  for (const XmlNode& node : nodes) {
    names.push_back(node.name());
  }
  return names;
}

TEST(XmlNode, MadeByDefaultIsNoNode) {
  EXPECT_FALSE(XmlNode());
  EXPECT_TRUE(element("Book"));
}

TEST(XmlNode, ThatIsNoNodeRaisesObjectNotSetOnEveryCall) {
  const XmlNode none;
  const XmlNode child = element("Book");
  EXPECT_EQ(errorRaisedBy([&] { (void)none.isElement(); }), kObjectNotSet);
  EXPECT_EQ(errorRaisedBy([&] { (void)none.name(); }), kObjectNotSet);
  EXPECT_EQ(errorRaisedBy([&] { (void)none.text(); }), kObjectNotSet);
  EXPECT_EQ(errorRaisedBy([&] { none.setText("x"); }), kObjectNotSet);
  EXPECT_EQ(errorRaisedBy([&] { (void)none.firstChild(); }), kObjectNotSet);
  EXPECT_EQ(errorRaisedBy([&] { (void)none.nextSibling(); }), kObjectNotSet);
  EXPECT_EQ(errorRaisedBy([&] { (void)none.children(); }), kObjectNotSet);
  EXPECT_EQ(errorRaisedBy([&] { (void)none.child("Book"); }), kObjectNotSet);
  EXPECT_EQ(errorRaisedBy([&] { (void)none.firstAttribute(); }), kObjectNotSet);
  EXPECT_EQ(errorRaisedBy([&] { (void)none.attribute("ID"); }), kObjectNotSet);
  EXPECT_EQ(errorRaisedBy([&] { none.setAttribute("ID", "1"); }), kObjectNotSet);
  EXPECT_EQ(errorRaisedBy([&] { (void)none.select("*"); }), kObjectNotSet);
  EXPECT_EQ(errorRaisedBy([&] { (void)none.selectAll("*"); }), kObjectNotSet);
  EXPECT_EQ(errorRaisedBy([&] { none.append(child); }), kObjectNotSet);
  EXPECT_EQ(errorRaisedBy([&] { none.insertBefore(child, XmlNode()); }), kObjectNotSet);
  EXPECT_EQ(errorRaisedBy([&] { none.remove(child); }), kObjectNotSet);
}

TEST(XmlNode, ListsItsChildrenInOrder) {
  const XmlNode book = element("Book", element("Name", {}, element("Acro", {}, element("File"))));
  EXPECT_THAT(namesOf(book.children()), ElementsAre("Name", "Acro", "File"));
}

TEST(XmlNode, WithoutChildrenListsNone) {
  EXPECT_TRUE(element("Book").children().empty());
}

TEST(XmlNode, FindsTheFirstChildElementOfAName) {
  const XmlNode second = element("Name", {}, element("Name"));
  const XmlNode book = element("Book", element("Acro", {}, second));
  EXPECT_EQ(&book.child("Name").body(), &second.body());
}

TEST(XmlNode, TakesNoInstructionForAChildElement) {
  const XmlNode name = element("Name");
  const XmlNode book = element("Book", instruction("Name", name));
  EXPECT_EQ(&book.child("Name").body(), &name.body());
}

TEST(XmlNode, WithoutAChildElementOfANameHasNoneToFind) {
  EXPECT_FALSE(element("Book", element("Name")).child("name"));
}

TEST(XmlNode, SelectsTheFirstMatchOrNone) {
  const XmlNode book = element("Book", element("Name", {}, element("Acro")));
  EXPECT_EQ(book.select("*").name(), "Name");
  EXPECT_FALSE(book.select("nothing"));
}

}  // namespace

}  // namespace quorbind::testing
