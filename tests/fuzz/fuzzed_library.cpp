#include "tests/fuzz/fuzzed_library.h"

#include "platform/runtime_error.h"
#include "platform/text.h"
#include "tests/bad_input/library_operations.h"
#include "tests/fuzz/claim.h"
#include "tests/support/book_run.h"
#include "tests/support/random_xml.h"

namespace quorbind::testing {

namespace {

/// Answers every form, for as long as the user lives.
void answerEveryForm(ScriptedUserInterface& user) {
  user.answerWith([&user](ModalForm& form) {
    answerEveryForm(user);
    if (form.name() == "frmBookFolder") {
      enterFolder("Manual")(form);
    } else {
      enterBook("Entered", "ENT")(form);
    }
  });
}

/// In any letter case: exports are named in capitals.
bool isBelow(std::string_view name, std::string_view folder) {
  return equalIgnoringAsciiCase(name.substr(0, folder.size()), folder);
}

}  // namespace

FuzzedLibrary::FuzzedLibrary() {
  answerEveryForm(library_.user);
}

FuzzedLibrary& FuzzedLibrary::restored() {
  static FuzzedLibrary library;
  library.library_.reset();
  return library;
}

Platform FuzzedLibrary::platformWith(Spreadsheets& spreadsheets) const {
  const Platform& own = platform();
  return {own.files, own.xml, own.ui, own.toolset, own.locale, spreadsheets};
}

void FuzzedLibrary::claimIsWhole(std::string_view damaged) {
  const WholeLibrary::Tree& sound = library_.sound();
  const auto document = platform().xml.createDocument();
  for (const auto& [name, bytes] : files().contents()) {
    const auto before = sound.find(name);
    const bool isNew = before == sound.end();
    claim(!isNew || isBelow(name, "in/") || isBelow(name, "Docs/Plant/"),
          "nothing is written beside the input and the library");
    const bool isOld = !isNew && before->second == bytes;
    const bool isFile = files().fileExists(componentPath(name));
    if (isFile && name.ends_with(".xml") && !isOld && bytes != damaged) {
      claimLoads(*document, componentPath(name));
    }
  }
}

void FuzzedLibrary::add(std::string_view name, std::int16_t kind, Spreadsheets& spreadsheets) {
  BookValuatorArguments arguments = additionOf(componentPath("in/" + std::string(name)), kind);
  arguments.vstrBookName.clear();
  arguments.vstrBookAcro.clear();
  Module module(platformWith(spreadsheets));
  Quor_Book book(module);
  runBook(book, arguments);
}

void FuzzedLibrary::add(std::string_view name, std::int16_t kind) {
  add(name, kind, platform().spreadsheets);
}

bool claimLoads(XmlDocument& document, std::string_view path) {
  const XmlLoadResult result = document.load(path);
  claim(result || contains(result.reason, "stand inside each other"),
        "what is written can be read again");
  return result.loaded;
}

void claimSavesAsItIs(MemoryFiles& files, XmlDocument& document, const std::string& name) {
  const std::string path = componentPath(name);
  const std::string tree = describeTree(document.documentElement());
  try {
    document.save(path);
  } catch (const RunTimeError&) {
    return;  // in an encoding that is read and not written
  }
  const std::string bytes = files.read(name);
  claim(document.load(path).loaded, "a saved document loads");
  claim(describeTree(document.documentElement()) == tree, "a saved document is the same tree");
  document.save(path);
  claim(files.read(name) == bytes, "a document that is saved again is the same bytes");
}

}  // namespace quorbind::testing
