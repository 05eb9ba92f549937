// explain: what the messages mean.

#include "cli/explain_command.h"
#include "cli/grammar.h"

namespace quorbind {

void offerExplanations(CLI::App& app, Task& task) {
  auto [command, arguments] = offer(
      app, task, "explain", "Tell what a message means and how to mend what is wrong", runExplain);
  command
      .add_option("MESSAGE",
                  arguments.question,
                  "Its number, or words of it; the list of all messages without")
      ->check(refusalOfBlankText)
      ->option_text("...");
  addJson(command, arguments.json);
  command.footer("A message can be pasted whole, between quotation marks of the shell.");
}

}  // namespace quorbind
