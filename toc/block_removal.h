#pragma once

// Taking marked blocks out of a text, each with everything that reads alike.
//
// The rule that this serves is written as a loop: the first block of a text (from its first start
// mark to the end of its first end mark) is looked at, then it *and every other occurrence of the
// same characters* is replaced by one blank, and the search starts again at the beginning of the
// text. Done so, the time grows with the square of the text. Here the text passes once, from front
// to back. What was taken out is remembered, and where an end mark is complete, a block that ends
// there and reads like one of those goes at once.
//
// The order of time is part of the rule. A replacement passes over the text once, so the blank that
// it leaves may complete a block that reads like the very one just replaced, or like an earlier
// one, and such a block stays. Hence each blank knows which replacement it came from, and only
// later ones apply to a block that holds it. Among several blocks that could go, the one that was
// taken out first went first.

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quorbind {

/// A text in the course of having blocks taken out of it.
///
/// The reader of the text appends it piece by piece and tells where marks begin. A block holds one
/// end mark, at its end, and any number of start marks. What counts as a mark is the reader's
/// business; a mark that was told stays one until its block goes.
class BlockRemoval {
 public:
  struct Mark {
    /// Where it begins in `text()`.
    std::size_t position = 0;
    /// Where it begins in the reader's text, as the reader told.
    std::size_t origin = 0;
  };

  void append(std::string_view characters) { text_.append(characters); }
  /// What is appended next begins a start mark, or an end mark.
  void beginStartMark(std::size_t origin);
  void beginEndMark(std::size_t origin);

  /// Whether the mark begun last is an end mark.
  [[nodiscard]] bool isAtEndMark() const { return !marks_.empty() && marks_.back().isEnd; }
  /// The end mark begun last is complete. Answers whether a block that ends with it reads like one
  /// that was taken out; the block is a blank then.
  bool completeEndMark();
  /// Takes out what stands from the first start mark on. There must be one, with the end mark that
  /// was completed last as the only end mark behind it.
  void takeOutFirstBlock();

  /// The text as far as it was appended, with a blank for each block that is gone.
  [[nodiscard]] const std::string& text() const { return text_; }
  /// The first mark of its kind in `text()`.
  [[nodiscard]] std::optional<Mark> firstStartMark() const { return firstMark(/*isEnd=*/false); }
  [[nodiscard]] std::optional<Mark> firstEndMark() const { return firstMark(/*isEnd=*/true); }

 private:
  /// Counts the blocks taken out, from 1; 0 is before the first.
  using Time = std::size_t;

  struct OpenMark {
    Mark place;
    bool isEnd = false;
    /// Of the blanks between this mark and the next: when the newest came.
    Time newestBlank = 0;
  };
  /// A block that was taken out, once or more often.
  struct Block {
    std::string_view text;
    std::size_t startMarks = 0;
    std::vector<Time> times;
  };
  /// A block at the end of the text that reads like one taken out at `time`.
  struct Repetition {
    std::size_t startMarks = 0;
    Time time = 0;
  };

  [[nodiscard]] std::optional<Mark> firstMark(bool isEnd) const;
  /// How many start marks stand directly in front of the last mark, which is an end mark.
  [[nodiscard]] std::size_t startMarksBeforeEnd() const;
  /// The mark that a block with so many start marks, ending here, begins with.
  [[nodiscard]] std::size_t indexOfBlock(std::size_t startMarks) const;
  [[nodiscard]] std::string_view tailOfBlock() const;
  [[nodiscard]] std::optional<Repetition> findRepetition() const;
  [[nodiscard]] std::optional<Time> timeOfRepetition(const Block& block) const;
  [[nodiscard]] Time newestBlankFrom(std::size_t index) const;
  void remember(std::string_view text, std::size_t startMarks);
  void replaceByBlank(std::size_t index, Time time);

  std::string text_;
  std::vector<OpenMark> marks_;
  Time now_ = 0;
  /// The texts of the blocks, and the blocks by their tails: what they end with from their last
  /// start mark on. No two parts of the text are ever looked up as tails that overlap, which keeps
  /// the looking up linear.
  std::deque<std::string> texts_;
  std::unordered_map<std::string_view, std::vector<Block>> blocksByTail_;
};

}  // namespace quorbind
