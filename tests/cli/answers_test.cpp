#include <gtest/gtest.h>

#include <algorithm>

#include "cli/addition.h"
#include "cli/command_line.h"
#include "cli/grammar.h"
#include "resources/form_layouts.h"

namespace quorbind::testing {
namespace {

TEST(Answers, EveryTextBoxOfEveryDialogHasAFlagOfAdd) {
  CLI::App app;
  Task task;
  declareCommand(app, task);
  const CLI::App& add = *app.get_subcommand("add");
  const std::vector<PreparedAnswer> answers = Addition::answersOf({});
  for (const FormLayout* form : layout::kForms) {
    for (const ControlLayout& control : form->controls) {
      if (control.kind != ControlKind::kTextBox) {
        continue;
      }
      const auto answer =
          std::find_if(answers.begin(), answers.end(), [&](const PreparedAnswer& prepared) {
            return prepared.form == form->name && prepared.textBox == control.name;
          });
      ASSERT_NE(answer, answers.end()) << form->name << ' ' << control.name;
      EXPECT_NE(add.get_option_no_throw(std::string(answer->flag)), nullptr) << answer->flag;
    }
  }
}

}  // namespace
}  // namespace quorbind::testing
