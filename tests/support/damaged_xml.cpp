#include "tests/support/damaged_xml.h"

#include "tests/support/temporary_folder.h"

namespace quorbind::testing {

namespace {

using namespace std::string_literals;

using Damages = std::vector<XmlDamage>;
using Kind = XmlDamage::Kind;

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

std::string cut(const std::string& bytes, std::size_t percent) {
  return bytes.substr(0, bytes.size() * percent / 100);
}

/// The same with an even number of bytes.
std::string cutAtUnit(const std::string& bytes, std::size_t percent) {
  const std::string part = cut(bytes, percent);
  return part.substr(0, part.size() / 2 * 2);
}

std::string repeated(std::string_view text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i) {
    all += text;
  }
  return all;
}

std::string rootOf(std::string_view sound) {
  const std::size_t begin = sound.find('<') + 1;
  return std::string(sound.substr(begin, sound.find_first_of(" />\r\n", begin) - begin));
}

/// `sound` with `content` behind the start tag of its root.
std::string withContent(std::string_view sound, std::string_view content) {
  const std::size_t end = sound.find('>') + 1;
  return std::string(sound.substr(0, end)).append(content).append(sound.substr(end));
}

std::string billionLaughs() {
  std::string text = "<!DOCTYPE r [<!ENTITY a0 'ha'>";
  for (int level = 1; level <= 30; ++level) {
    const std::string below = "&a" + std::to_string(level - 1) + ";";
    text += "<!ENTITY a" + std::to_string(level) + " '" + repeated(below, 10) + "'>";
  }
  return text + "]><r>&a30;</r>";
}

std::string quadraticBlowUp() {
  return "<!DOCTYPE r [<!ENTITY a '" + std::string(50'000, 'a') + "'>]><r>" +
         repeated("&a;", 50'000) + "</r>";
}

Damages withoutADocument() {
  return {
      {"empty", Kind::kUnreadable, ""},
      {"missing", Kind::kMissing},
      {"folder", Kind::kFolder},
      {"blanks", Kind::kUnreadable, "  \t "},
      {"line ends", Kind::kUnreadable, "\r\n\r\n"},
      {"zeros", Kind::kUnreadable, std::string(512, '\0')},
      {"a picture", Kind::kUnreadable, "\x89PNG\r\n\x1A\n\0\0\0\rIHDR"s},
      {"words", Kind::kUnreadable, "just words\n"},
      {"one bracket", Kind::kUnreadable, "<"},
      {"a declaration alone", Kind::kUnreadable, declarationOf("UTF-8")},
      {"a comment alone", Kind::kUnreadable, "<!-- nothing -->"},
      {"an instruction alone", Kind::kUnreadable, "<?nothing?>"},
  };
}

Damages marked(const std::string& sound) {
  const std::string unicode = utf16File(declarationOf("UTF-16") + sound);
  return {
      {"half a UTF-16 mark", Kind::kUnreadable, "\xFF"},
      {"half a big-endian mark", Kind::kUnreadable, "\xFE"},
      {"a third of a UTF-8 mark", Kind::kUnreadable, "\xEF"},
      {"two thirds of a UTF-8 mark", Kind::kUnreadable, "\xEF\xBB"},
      {"a UTF-16 mark alone", Kind::kUnreadable, "\xFF\xFE"},
      {"a big-endian mark alone", Kind::kUnreadable, "\xFE\xFF"},
      {"a UTF-8 mark alone", Kind::kUnreadable, std::string(kUtf8Mark)},
      {"two thirds of a UTF-8 mark before it", Kind::kUnreadable, "\xEF\xBB" + sound},
      {"half a UTF-16 mark before it", Kind::kUnreadable, unicode.substr(1)},
      {"the mark of the other order", Kind::kUnreadable, "\xFE\xFF" + unicode.substr(2)},
      {"the UTF-8 mark before UTF-16", Kind::kUnreadable, std::string(kUtf8Mark) + unicode},
  };
}

Damages truncated(const std::string& sound) {
  const std::string unicode = utf16File(declarationOf("UTF-16") + sound);
  const std::string bigEndian = utf16BigEndianFile(declarationOf("UTF-16") + sound);
  return {
      {"the first bytes", Kind::kUnreadable, sound.substr(0, 5)},
      {"a tenth", Kind::kUnreadable, cut(sound, 10)},
      {"a third", Kind::kUnreadable, cut(sound, 33)},
      {"half", Kind::kUnreadable, cut(sound, 50)},
      {"nine tenths", Kind::kUnreadable, cut(sound, 90)},
      {"all but the last bracket", Kind::kUnreadable, sound.substr(0, sound.rfind('>'))},
      {"half and half a character", Kind::kUnreadable, cut(sound, 50) + "\xE7\x9B"},
      {"half in UTF-16", Kind::kUnreadable, cutAtUnit(unicode, 50)},
      {"nine tenths in UTF-16", Kind::kUnreadable, cutAtUnit(unicode, 90)},
      {"half a unit of UTF-16", Kind::kUnreadable, cutAtUnit(unicode, 50) + "<"},
      {"half a surrogate pair", Kind::kUnreadable, cutAtUnit(unicode, 50) + "\x3D\xD8"},
      {"half in UTF-16BE", Kind::kUnreadable, cutAtUnit(bigEndian, 50)},
      {"half a unit of UTF-16BE", Kind::kUnreadable, cutAtUnit(bigEndian, 50) + "\0"s},
  };
}

Damages wronglyEncoded(const std::string& sound) {
  return {
      {"UTF-8 that says UTF-16", Kind::kUnreadable, declarationOf("UTF-16") + sound},
      {"marked UTF-8 that says UTF-16",
       Kind::kUnreadable,
       std::string(kUtf8Mark) + declarationOf("UTF-16") + sound},
      {"an unknown encoding", Kind::kUnreadable, declarationOf("no-such-code") + sound},
      {"an empty encoding", Kind::kUnreadable, declarationOf("") + sound},
      {"Latin-1 that says UTF-8",
       Kind::kUnreadable,
       declarationOf("UTF-8") + withContent(sound, "caf\xE9")},
      {"Latin-1 that says nothing", Kind::kUnreadable, withContent(sound, "caf\xE9")},
      {"a character in too many bytes", Kind::kUnreadable, withContent(sound, "\xC0\xAF")},
      {"a surrogate in UTF-8", Kind::kUnreadable, withContent(sound, "\xED\xA0\x80")},
  };
}

Damages malformed(const std::string& sound) {
  return {
      {"a document type", Kind::kUnreadable, "<!DOCTYPE " + rootOf(sound) + ">" + sound},
      {"a document type elsewhere",
       Kind::kUnreadable,
       "<!DOCTYPE " + rootOf(sound) + " SYSTEM 'http://127.0.0.1:1/a.dtd'>" + sound},
      {"an entity of a file",
       Kind::kUnreadable,
       "<!DOCTYPE r [<!ENTITY a SYSTEM 'Quor_TOC.xml'>]>" + withContent(sound, "&a;")},
      {"a billion laughs", Kind::kUnreadable, billionLaughs()},
      {"a quadratic blow-up", Kind::kUnreadable, quadraticBlowUp()},
      {"an unknown entity", Kind::kUnreadable, withContent(sound, "&nbsp;")},
      {"elements too deep", Kind::kUnreadable, withContent(sound, repeated("<a>", 300))},
      {"two roots", Kind::kUnreadable, sound + sound},
      {"words behind the root", Kind::kUnreadable, sound + "words"},
      {"words in front of the root", Kind::kUnreadable, "words" + sound},
      {"a declaration behind a line end", Kind::kUnreadable, "\n" + declarationOf("UTF-8") + sound},
      {"an attribute twice", Kind::kUnreadable, withContent(sound, "<a b='1' b='2'/>")},
      {"an attribute without marks", Kind::kUnreadable, withContent(sound, "<a b=1/>")},
      {"a prefix that nobody declares", Kind::kUnreadable, withContent(sound, "<q:a/>")},
      {"tags that cross", Kind::kUnreadable, withContent(sound, "<a><b></a></b>")},
      {"another end tag", Kind::kUnreadable, "<" + rootOf(sound) + "></Other>"},
      {"a control character", Kind::kUnreadable, withContent(sound, "\x01")},
      {"a zero inside", Kind::kUnreadable, withContent(sound, "\0"s)},
      {"a reference to a zero", Kind::kUnreadable, withContent(sound, "&#0;")},
      {"a reference to a surrogate", Kind::kUnreadable, withContent(sound, "&#xD800;")},
      {"two hyphens in a comment", Kind::kUnreadable, withContent(sound, "<!-- a -- b -->")},
      {"an open comment", Kind::kUnreadable, withContent(sound, "<!-- ")},
      {"open character data", Kind::kUnreadable, withContent(sound, "<![CDATA[")},
      {"a bare ampersand", Kind::kUnreadable, withContent(sound, "a & b")},
  };
}

Damages foreign(const std::string& root) {
  return {
      {"another root", Kind::kForeign, "<Foreign>\r\n\t<Category/>\r\n</Foreign>\r\n"},
      {"another root in UTF-16",
       Kind::kForeign,
       utf16File(declarationOf("UTF-16") + "<Foreign>words</Foreign>\r\n")},
      {"its root in another namespace", Kind::kForeign, "<" + root + " xmlns=\"urn:other\"/>\r\n"},
      {"its root under a longer name",
       Kind::kForeign,
       "<" + root + "s>\r\n\t<!--c-->\r\n</" + root + "s>\r\n"},
  };
}

}  // namespace

std::string declarationOf(std::string_view encoding) {
  return std::string("<?xml version=\"1.0\" encoding=\"").append(encoding).append("\"?>\r\n");
}

std::vector<XmlDamage> xmlDamagesOf(std::string_view sound) {
  const std::string document(sound);
  Damages all;
  for (const Damages& some : {withoutADocument(),
                              marked(document),
                              truncated(document),
                              wronglyEncoded(document),
                              malformed(document),
                              foreign(rootOf(document))}) {
    all.insert(all.end(), some.begin(), some.end());
  }
  return all;
}

}  // namespace quorbind::testing
