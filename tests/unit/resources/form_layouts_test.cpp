#include "resources/form_layouts.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace quorbind::testing {
namespace {

/// In dialog units, as the platform's guidelines have it.
constexpr int kMargin = 7;

bool overlap(const ControlLayout& one, const ControlLayout& other) {
  return one.left < other.left + other.width && other.left < one.left + one.width &&
         one.top < other.top + other.height && other.top < one.top + one.height;
}

TEST(FormLayouts, KeepTheMarginAroundTheirControls) {
  for (const FormLayout* form : layout::kForms) {
    for (const ControlLayout& control : form->controls) {
      EXPECT_GE(control.left, kMargin) << form->name << '.' << control.name;
      EXPECT_GE(control.top, kMargin) << form->name << '.' << control.name;
      EXPECT_LE(control.left + control.width, form->width - kMargin)
          << form->name << '.' << control.name;
      EXPECT_LE(control.top + control.height, form->height - kMargin)
          << form->name << '.' << control.name;
    }
  }
}

TEST(FormLayouts, LetNoControlStandOnAnother) {
  for (const FormLayout* form : layout::kForms) {
    for (std::size_t place = 0; place < form->controls.size(); ++place) {
      for (const ControlLayout& later : form->controls.subspan(place + 1)) {
        const ControlLayout& earlier = form->controls[place];
        EXPECT_FALSE(overlap(earlier, later))
            << form->name << ": " << earlier.name << " and " << later.name;
      }
    }
  }
}

TEST(FormLayouts, NameEachTextBoxByTheLabelBeforeIt) {
  for (const FormLayout* form : layout::kForms) {
    for (std::size_t place = 0; place < form->controls.size(); ++place) {
      if (form->controls[place].kind == ControlKind::kTextBox) {
        ASSERT_GT(place, 0U);
        EXPECT_EQ(form->controls[place - 1].kind, ControlKind::kLabel);
      }
    }
  }
}

TEST(FormLayouts, GiveEachDialogOneDefaultButton) {
  for (const FormLayout* form : {&layout::kBookInfo, &layout::kBookFolder}) {
    EXPECT_EQ(std::ranges::count(form->controls, ControlKind::kDefaultButton, &ControlLayout::kind),
              1)
        << form->name;
  }
}

}  // namespace
}  // namespace quorbind::testing
