#include "element/input/xml_reader.h"

#include <expat.h>
#include <fmt/format.h>

#include <algorithm>
#include <exception>
#include <memory>
#include <new>
#include <string>

#include "element/input/input_error.h"
#include "element/input/input_text.h"
#include "element/input/nesting.h"
#include "element/input/netconf_framing.h"

namespace element {

/// Counts lines up to what the parser tells of, which may have begun before the piece that it reads.
class XmlLines {
 public:
  explicit XmlLines(XML_Parser parser) : parser_(parser) {}

  /// The parser is about to read `piece`, which begins at `offset` of its document.
  void enter(const InputPiece &piece, std::size_t offset) {
    piece_ = piece.text;
    piece_offset_ = offset;
    next_line_ = piece.line;
  }

  /// Counts to the token that the piece leaves unfinished.
  void leave() { line(); }

  std::size_t line() {
    const std::size_t offset = current_offset();
    if (offset < piece_offset_) return line_;
    const std::string_view passed = piece_.substr(0, offset - piece_offset_);
    next_line_ += static_cast<std::size_t>(std::count(passed.begin(), passed.end(), '\n'));
    piece_.remove_prefix(passed.size());
    piece_offset_ = offset;
    return line_ = next_line_;
  }

 private:
  std::size_t current_offset() const { return static_cast<std::size_t>(XML_GetCurrentByteIndex(parser_)); }

  XML_Parser parser_;
  std::string_view piece_;  ///< from `piece_offset_` on
  std::size_t piece_offset_ = 0;
  std::size_t next_line_ = 1;  ///< of the byte at `piece_offset_`
  std::size_t line_ = 1;       ///< of the last token that was asked about
};

namespace {

constexpr char kSeparator = '\n';                   ///< between namespace and name, for the parser allows it in neither
constexpr std::string_view kMessageEnd = "]]>]]>";  ///< behind a message in NETCONF 1.0
constexpr std::size_t kLongestTag = std::size_t{1} << 20;

struct FreeParser {
  void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};

struct QualifiedName {
  std::string_view name_space;
  std::string_view name;
};

QualifiedName split(std::string_view text) {
  const std::size_t separator = text.find(kSeparator);
  if (separator == std::string_view::npos) return {"", text};
  return {text.substr(0, separator), text.substr(separator + 1)};
}

class XmlParsing {
 public:
  XmlParsing(InputPieces &input, XmlEvents &events)
      : input_(input), framing_(input), events_(events), parser_(XML_ParserCreateNS("UTF-8", kSeparator)) {
    if (!parser_) throw std::bad_alloc();
  }

  std::size_t read() {
    InputPiece piece = framing_.next();
    for (; !piece.text.empty(); piece = framing_.next()) {
      while (!piece.text.empty()) take_front(piece);
    }
    if (is_in_document_) parse(piece, true);
    return documents_;
  }

 private:
  void take_front(InputPiece &piece) {
    if (!is_in_document_) skip_between(piece);
    if (piece.text.empty()) return;
    if (!is_in_document_) begin_document();
    const std::size_t taken = parse(piece, false);
    const std::string_view text = piece.text.substr(0, taken);
    piece.line += static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
    piece.text.remove_prefix(taken);
  }

  /// Takes blanks and ends of messages, which may be cut by the end of the piece.
  void skip_between(InputPiece &piece) {
    while (!piece.text.empty()) {
      const char c = piece.text.front();
      if (c == kMessageEnd[message_end_]) {
        message_end_ = (message_end_ + 1) % kMessageEnd.size();
      } else if (message_end_ != 0 || kBlank.find(c) == std::string_view::npos) {
        break;
      } else if (c == '\n') {
        ++piece.line;
      }
      piece.text.remove_prefix(1);
    }
    if (piece.text.empty() || (message_end_ == 0 && piece.text.front() == '<')) return;
    refuse(piece.line, "text outside of all elements; expected an element");
  }

  void begin_document() {
    XML_ParserReset(parser_.get(), "UTF-8");
    XML_SetUserData(parser_.get(), this);
    XML_SetElementHandler(parser_.get(), on_start, on_end);
    XML_SetCharacterDataHandler(parser_.get(), on_text);
    XML_SetStartDoctypeDeclHandler(parser_.get(), on_document_type);
    lines_ = XmlLines(parser_.get());
    offset_ = 0;
    is_in_document_ = true;
  }

  /// Gives the parser the piece up to its end, or to the end of the outermost element. Returns how much was taken.
  std::size_t parse(const InputPiece &piece, bool is_last) {
    lines_.enter(piece, offset_);
    const XML_Status status =
        XML_Parse(parser_.get(), piece.text.data(), static_cast<int>(piece.text.size()), is_last ? 1 : 0);
    if (failure_) std::rethrow_exception(failure_);
    if (!is_in_document_) return document_end_ - offset_;
    if (status != XML_STATUS_OK) {
      refuse_malformed();
      return piece.text.size();
    }
    lines_.leave();
    offset_ += piece.text.size();
    require_short_token();
    return piece.text.size();
  }

  void require_short_token() {
    if (is_in_document_ && offset_ - static_cast<std::size_t>(XML_GetCurrentByteIndex(parser_.get())) > kLongestTag) {
      refuse(lines_.line(), fmt::format("tag or comment of more than {} bytes; expected a shorter one", kLongestTag));
    }
  }

  /// Comments and instructions behind the last element look like a document without an element.
  void refuse_malformed() {
    const XML_Error error = XML_GetErrorCode(parser_.get());
    if (error == XML_ERROR_NO_MEMORY) throw std::bad_alloc();
    if (error == XML_ERROR_NO_ELEMENTS && depth_ == 0) return;
    const std::size_t line = lines_.line();
    if (error == XML_ERROR_NO_ELEMENTS) refuse(line, "the text ends inside an element; expected " + end_tag());
    const char *fault = XML_ErrorString(error);
    if (error == XML_ERROR_TAG_MISMATCH) refuse(line, fmt::format("{}; expected {}", fault, end_tag()));
    refuse(line, fmt::format("{}; expected well-formed XML", fault));
  }

  std::string end_tag() const { return fmt::format("</{}>", one_line(open_[depth_ - 1])); }

  [[noreturn]] void refuse(std::size_t line, const std::string &fault) const {
    throw InputError(fmt::format("{}:{}: {}", input_.origin(), line, fault));
  }

  void start(const char *qualified_name, const char **attributes) {
    const auto [name_space, name] = split(qualified_name);
    if (depth_ == open_.size()) open_.emplace_back();
    open_[depth_++] = name;
    const XmlElement element(name_space, name, attributes, lines_);
    if (depth_ > kDeepestNesting) {
      refuse(element.line(), fmt::format("nested deeper than {} elements; expected fewer", kDeepestNesting));
    }
    events_.start(element);
  }

  void end() {
    events_.end();
    if (--depth_ != 0) return;
    document_end_ =
        static_cast<std::size_t>(XML_GetCurrentByteIndex(parser_.get()) + XML_GetCurrentByteCount(parser_.get()));
    is_in_document_ = false;
    ++documents_;
    XML_StopParser(parser_.get(), XML_FALSE);
  }

  /// Exceptions do not pass through the parser, which is no C++.
  template <typename Function>
  static void guarded(void *data, Function function) noexcept {
    auto &reader = *static_cast<XmlParsing *>(data);
    if (reader.failure_) return;
    try {
      function(reader);
    } catch (...) {
      reader.failure_ = std::current_exception();
      XML_StopParser(reader.parser_.get(), XML_FALSE);
    }
  }

  static void on_start(void *data, const char *name, const char **attributes) {
    guarded(data, [&](XmlParsing &reader) { reader.start(name, attributes); });
  }
  static void on_end(void *data, const char *) {
    guarded(data, [](XmlParsing &reader) { reader.end(); });
  }
  static void on_text(void *data, const char *text, int size) {
    guarded(data, [&](XmlParsing &reader) { reader.events_.text({text, static_cast<std::size_t>(size)}); });
  }
  static void on_document_type(void *data, const char *, const char *, const char *, int) {
    guarded(data, [](XmlParsing &reader) {
      reader.refuse(reader.lines_.line(), "document type declaration; expected XML without one");
    });
  }

  InputPieces &input_;
  NetconfFraming framing_;
  XmlEvents &events_;
  std::unique_ptr<XML_ParserStruct, FreeParser> parser_;
  XmlLines lines_{nullptr};
  std::size_t offset_ = 0;        ///< of the next piece in its document
  std::size_t document_end_ = 0;  ///< offset in the document
  std::size_t documents_ = 0;     ///< that are complete
  std::size_t message_end_ = 0;   ///< how much of a message's end was taken
  bool is_in_document_ = false;
  std::vector<std::string> open_;  ///< names of the open elements, the first `depth_` of them
  std::size_t depth_ = 0;
  std::exception_ptr failure_;
};

}  // namespace

std::vector<XmlAttribute> XmlElement::attributes() const {
  std::vector<XmlAttribute> attributes;
  for (const char **pair = attributes_; *pair != nullptr; pair += 2) {
    const auto [name_space, name] = split(pair[0]);
    attributes.push_back({name_space, name, pair[1]});
  }
  return attributes;
}

std::size_t XmlElement::line() const { return lines_.line(); }

std::size_t read_xml(InputPieces &input, XmlEvents &events) { return XmlParsing(input, events).read(); }

}  // namespace element
