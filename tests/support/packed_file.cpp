#include "tests/support/packed_file.h"

#include <zlib.h>

#include <stdexcept>

#include "tests/support/little_endian.h"

namespace quorbind::testing {

namespace {

constexpr std::string_view kDeclaration =
    R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>)"
    "\n";
constexpr std::string_view kMainNamespace =
    R"( xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main")"
    R"( xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships")";
constexpr std::string_view kRelationNamespace =
    R"( xmlns="http://schemas.openxmlformats.org/package/2006/relationships")";
constexpr std::string_view kRelationTypes =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships/";

std::string deflated(std::string_view bytes) {
  z_stream stream{};
  constexpr int kMemoryLevel = 9;
  if (deflateInit2(
          &stream, Z_BEST_COMPRESSION, Z_DEFLATED, -MAX_WBITS, kMemoryLevel, Z_DEFAULT_STRATEGY) !=
      Z_OK) {
    throw std::runtime_error("zlib does not start");
  }
  std::string packed(deflateBound(&stream, static_cast<uLong>(bytes.size())), '\0');
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));
  stream.avail_in = static_cast<uInt>(bytes.size());
  stream.next_out = reinterpret_cast<Bytef*>(packed.data());
  stream.avail_out = static_cast<uInt>(packed.size());
  const int outcome = deflate(&stream, Z_FINISH);
  packed.resize(stream.total_out);
  deflateEnd(&stream);
  if (outcome != Z_STREAM_END) {
    throw std::runtime_error("zlib does not finish");
  }
  return packed;
}

std::string sizesOf(const PackedFile::Entry& entry) {
  return littleEndian<4>(entry.checksum) + littleEndian<4>(entry.packedSize) +
         littleEndian<4>(entry.size) + littleEndian<2>(entry.name.size());
}

std::string relation(std::string_view id, std::string_view kind, std::string_view target) {
  return std::string("<Relationship Id=\"")
      .append(id)
      .append("\" Type=\"")
      .append(kRelationTypes)
      .append(kind)
      .append("\" Target=\"")
      .append(target)
      .append("\"/>");
}

std::string element(std::string_view name, std::string_view attributes, std::string_view content) {
  return std::string("<")
      .append(name)
      .append(attributes)
      .append(">")
      .append(content)
      .append("</")
      .append(name)
      .append(">");
}

}  // namespace

PackedFile::Entry& PackedFile::add(std::string_view name, std::string_view bytes, Packing packing) {
  const std::string packed = packing == Packing::kStored ? std::string(bytes) : deflated(bytes);
  constexpr std::uint16_t kDeflatedMethod = 8;
  entries_.push_back(
      {.name = std::string(name),
       .method = packing == Packing::kStored ? std::uint16_t{0} : kDeflatedMethod,
       .checksum = static_cast<std::uint32_t>(crc32(crc32(0, nullptr, 0),
                                                    reinterpret_cast<const Bytef*>(bytes.data()),
                                                    static_cast<uInt>(bytes.size()))),
       .packedSize = static_cast<std::uint32_t>(packed.size()),
       .size = static_cast<std::uint32_t>(bytes.size()),
       .position = static_cast<std::uint32_t>(parts_.size())});
  Entry& entry = entries_.back();
  parts_ += "PK\x03\x04" + littleEndian<2>(20) + littleEndian<2>(entry.flags) +
            littleEndian<2>(entry.method) + littleEndian<4>(0) + sizesOf(entry) +
            littleEndian<2>(0) + entry.name + packed;
  return entry;
}

std::string PackedFile::bytes(std::string_view comment) const {
  std::string directory;
  for (const Entry& entry : entries_) {
    directory += "PK\x01\x02" + littleEndian<2>(20) + littleEndian<2>(20) +
                 littleEndian<2>(entry.flags) + littleEndian<2>(entry.method) + littleEndian<4>(0) +
                 sizesOf(entry) + littleEndian<2>(0) + littleEndian<2>(0) + littleEndian<2>(0) +
                 littleEndian<2>(0) + littleEndian<4>(0) + littleEndian<4>(entry.position) +
                 entry.name;
  }
  const std::string count = littleEndian<2>(entries_.size());
  return parts_ + directory + "PK\x05\x06" + littleEndian<4>(0) + count + count +
         littleEndian<4>(directory.size()) + littleEndian<4>(parts_.size()) +
         littleEndian<2>(comment.size()) + std::string(comment);
}

std::map<std::string, std::string> smallWorkbook() {
  return {{"_rels/.rels",
           "<Relationships><Relationship Id=\"a\" Type=\"x/officeDocument\" "
           "Target=\"xl/workbook.xml\"/></Relationships>"},
          {"xl/workbook.xml",
           "<workbook xmlns:r=\"o\"><sheets><sheet r:id=\"s\"/></sheets></workbook>"},
          {"xl/_rels/workbook.xml.rels",
           "<Relationships><Relationship Id=\"s\" Type=\"x/worksheet\" Target=\"sheet.xml\"/>"
           "<Relationship Id=\"t\" Type=\"x/sharedStrings\" Target=\"texts.xml\"/>"
           "<Relationship Id=\"y\" Type=\"x/styles\" Target=\"styles.xml\"/></Relationships>"},
          {"xl/sheet.xml",
           "<worksheet><sheetData><row><c t=\"s\"><v>0</v></c></row></sheetData></worksheet>"},
          {"xl/texts.xml", "<sst><si><t>text</t></si></sst>"},
          {"xl/styles.xml", "<styleSheet><cellXfs></cellXfs></styleSheet>"}};
}

PackedFile smallWorkbookWith(std::string_view part, std::string_view bytes) {
  PackedFile file;
  for (const auto& [name, content] : smallWorkbook()) {
    file.add(name, name == part ? bytes : content);
  }
  return file;
}

PackedWorkbook& PackedWorkbook::sheet(std::string rows, std::string_view kind) {
  sheets_.push_back({std::move(rows), std::string(kind), {}});
  return *this;
}

PackedWorkbook& PackedWorkbook::sharedTexts(std::string items) {
  sharedTexts_ = std::move(items);
  return *this;
}

PackedWorkbook& PackedWorkbook::styles(std::string content) {
  styles_ = std::move(content);
  return *this;
}

PackedWorkbook& PackedWorkbook::properties(std::string attributes) {
  properties_ = std::move(attributes);
  return *this;
}

PackedWorkbook& PackedWorkbook::lastSheetIs(std::string attributes) {
  sheets_.back().attributes = " " + std::move(attributes);
  return *this;
}

PackedFile PackedWorkbook::file() const {
  PackedFile file;
  const auto add = [&file](std::string_view name, const std::string& document) {
    file.add(name, std::string(kDeclaration) + document);
  };
  std::string list;
  std::string relations = relation("rIdStyles", "styles", "styles.xml");
  if (!sharedTexts_.empty()) {
    relations += relation("rIdTexts", "sharedStrings", "/xl/sharedStrings.xml");
    add("xl/sharedStrings.xml", element("sst", kMainNamespace, sharedTexts_));
  }
  for (std::size_t i = 0; i < sheets_.size(); ++i) {
    const std::string number = std::to_string(i + 1);
    const Sheet& sheet = sheets_[i];
    list += "<sheet name=\"S" + number + "\" sheetId=\"" + number + "\"" + sheet.attributes +
            " r:id=\"rId" + number + "\"/>";
    relations += relation("rId" + number, sheet.kind, "worksheets/sheet" + number + ".xml");
    add("xl/worksheets/sheet" + number + ".xml",
        element("worksheet", kMainNamespace, element("sheetData", "", sheet.rows)));
  }
  add("_rels/.rels",
      element("Relationships",
              kRelationNamespace,
              relation("rId1", "officeDocument", "xl/workbook.xml")));
  add("xl/workbook.xml",
      element("workbook",
              kMainNamespace,
              "<workbookPr " + properties_ + "/>" + element("sheets", "", list)));
  add("xl/_rels/workbook.xml.rels", element("Relationships", kRelationNamespace, relations));
  add("xl/styles.xml", element("styleSheet", kMainNamespace, styles_));
  return file;
}

}  // namespace quorbind::testing
