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
//
// Blocks are found again by a hash that is carried along with the text, so that the hash of what
// stands behind any mark is known without reading it. A block that ends here can begin at each of
// the start marks before, but only as many different numbers of start marks are tried as blocks
// taken out have had: one on an ordinary page, and never more than the square root of twice its
// start marks. Characters are compared only where a block is about to go.

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quorbind {

/// A text in the course of having blocks taken out of it.
///
/// Its reader lets it pass piece by piece and tells where marks begin. A block holds one end mark,
/// at its end, and any number of start marks. What counts as a mark is the reader's business; a
/// mark that was told stays one until its block goes.
class BlockRemoval {
 public:
  struct Mark {
    /// Where it begins in `text()`.
    std::size_t position = 0;
    /// Where it begins in the whole text.
    std::size_t origin = 0;
  };

  /// What `whole` views has to stay.
  explicit BlockRemoval(std::string_view whole) : whole_(whole) {}

  /// So many characters more of the whole text pass.
  void pass(std::size_t size);
  /// How many have.
  [[nodiscard]] std::size_t passed() const { return passed_; }
  /// What passes next begins a start mark, or an end mark.
  void beginStartMark() { beginMark(/*isEnd=*/false); }
  void beginEndMark() { beginMark(/*isEnd=*/true); }

  /// Whether the mark begun last is an end mark.
  [[nodiscard]] bool isAtEndMark() const { return !marks_.empty() && marks_.back().isEnd; }
  /// The end mark begun last is complete. Answers whether a block that ends with it reads like one
  /// that was taken out; the block is a blank then.
  bool completeEndMark();
  /// Takes out what stands from the first start mark on. There must be one, with the end mark that
  /// was completed last as the only end mark behind it.
  void takeOutFirstBlock();

  /// The text as far as it has passed, with a blank for each block that is gone.
  [[nodiscard]] const std::string& text() const { return text_; }
  /// The first mark of its kind in `text()`.
  [[nodiscard]] std::optional<Mark> firstStartMark() const { return firstMark(/*isEnd=*/false); }
  [[nodiscard]] std::optional<Mark> firstEndMark() const { return firstMark(/*isEnd=*/true); }

 private:
  /// Counts the blocks taken out, from 1; 0 is before the first.
  using Time = std::size_t;

  /// A polynomial over the characters of a text, modulo the prime 2^61 - 1.
  using Hash = std::uint64_t;

  struct OpenMark {
    Mark place;
    bool isEnd = false;
    /// How many start marks stand in front of it, back to the end mark before.
    std::size_t startMarksBefore = 0;
    /// Of the text in front of it.
    Hash hashBefore = 0;
    /// Of the blanks between this mark and the next: when the newest came.
    Time newestBlank = 0;
  };
  /// A block at the end of the text that reads like one taken out at `time`.
  struct Repetition {
    std::size_t startMarks = 0;
    Time time = 0;
  };

  /// The blocks that were taken out. A table of its own, because a page may have as many headings
  /// as memory holds, and nodes strewn over it would cost more than everything else.
  class TakenOut {
   public:
    /// Blocks that read alike.
    struct Block {
      std::string_view text;
      std::size_t startMarks = 0;
      Hash hash = 0;
      Time first = 0;
    };

    /// How often something was taken out.
    [[nodiscard]] Time now() const { return now_; }
    /// The numbers of start marks that blocks have, in ascending order.
    [[nodiscard]] const std::vector<std::size_t>& startMarkCounts() const { return counts_; }
    /// The block of that hash, size and number of start marks that passes `test`, or null.
    template <typename Test>
    const Block* find(Hash hash, std::size_t size, std::size_t startMarks, Test test) const;
    /// The last time before `time` that such a block was taken out; 0 for never.
    [[nodiscard]] Time lastBefore(Time time, const Block& block) const;
    /// The first time after `time`; there must be one.
    [[nodiscard]] Time firstAfter(Time time, const Block& block) const;
    /// `text` has to stay.
    void add(std::string_view text, Hash hash, std::size_t startMarks);

   private:
    /// Which block, and the low half of its hash: others are told apart without a look at them.
    struct Slot {
      static constexpr std::uint32_t kFree = UINT32_MAX;
      std::uint32_t block = kFree;
      std::uint32_t hash = 0;
    };

    [[nodiscard]] std::size_t slotOf(std::uint32_t hash) const {
      return hash & (slots_.size() - 1);
    }
    [[nodiscard]] std::size_t slotBehind(std::size_t slot) const {
      return (slot + 1) & (slots_.size() - 1);
    }
    /// The times behind the first, in ascending order.
    [[nodiscard]] const std::vector<Time>& laterOf(const Block& block) const;
    void addNew(Block block);
    void takeSlot(const Slot& taken);
    void makeRoom();

    Time now_ = 0;
    /// Not copied when their number grows.
    std::deque<Block> blocks_;
    /// By the first time, of the few that came again.
    std::unordered_map<Time, std::vector<Time>> later_;
    std::vector<std::size_t> counts_;
    /// A power of two of them, half of them free.
    std::vector<Slot> slots_;
  };

  /// The newest blank behind a mark, for marks that lie ever further back.
  class BlankSearch {
   public:
    explicit BlankSearch(const std::vector<OpenMark>& marks)
        : marks_(marks), index_(marks.size()) {}

    /// Stops where one came at `limit` or later.
    Time newestFrom(std::size_t index, Time limit);

   private:
    const std::vector<OpenMark>& marks_;
    std::size_t index_;
    Time newest_ = 0;
  };

  void append(std::string_view characters);
  void beginMark(bool isEnd);
  [[nodiscard]] std::optional<Mark> firstMark(bool isEnd) const;
  /// The mark that a block with so many start marks, ending here, begins with.
  [[nodiscard]] std::size_t indexOfBlock(std::size_t startMarks) const;
  [[nodiscard]] std::string_view textFrom(const OpenMark& mark) const;
  /// The same, as something that stays.
  [[nodiscard]] std::string_view lastingTextFrom(std::size_t index);
  [[nodiscard]] Hash hashFrom(const OpenMark& mark) const;
  [[nodiscard]] std::optional<Repetition> findRepetition() const;
  void replaceByBlank(std::size_t index, Time time);

  std::string_view whole_;
  std::size_t passed_ = 0;
  std::string text_;
  /// Of all of it, as far as it stands behind a mark.
  Hash hash_ = 0;
  std::vector<OpenMark> marks_;
  TakenOut takenOut_;
  /// Blocks that were taken out with blanks in them, and so read otherwise than the whole text.
  std::deque<std::string> takenOutWithBlanks_;
};

}  // namespace quorbind
