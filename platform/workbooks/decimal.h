#pragma once

#include <cstddef>
#include <string>

namespace quorbind {

/// The size of a number as the decimal digits that a spreadsheet knows of it: 15, whatever stands
/// behind them in memory.
class Decimal {
 public:
  /// Of a finite number; its sign is left out.
  static Decimal of(double value);
  static Decimal ofInteger(long long value);

  /// The digits without zeros at either end; none for 0.
  [[nodiscard]] const std::string& digits() const { return digits_; }
  [[nodiscard]] bool isZero() const { return digits_.empty(); }
  /// How many digits stand before the decimal point. With more than there are, zeros follow them;
  /// below 0, zeros stand between the point and the first.
  [[nodiscard]] int point() const { return point_; }

  /// The digit that counts 10 to the power of `place`: 0 the ones, -1 the tenths.
  [[nodiscard]] char digitAt(int place) const;
  /// Whether a digit that is not 0 stands at `place` or further right.
  [[nodiscard]] bool hasDigitsFrom(int place) const;

  /// 10 to the power of `places` as large.
  [[nodiscard]] Decimal shifted(int places) const;
  /// Rounded, half away from zero, to that many digits behind the point.
  [[nodiscard]] Decimal roundedTo(int decimals) const;

  /// In plain digits, with a point where one is needed.
  [[nodiscard]] std::string plain() const;

 private:
  Decimal(std::string digits, int point);

  std::string digits_;
  int point_ = 0;
};

}  // namespace quorbind
