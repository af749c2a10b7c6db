#include "element/profile/interface_data.h"

#include <utility>

#include "element/input/input_fault.h"
#include "element/input/input_pieces.h"
#include "element/input/input_text.h"
#include "element/input/json_reader.h"
#include "element/input/member_names.h"
#include "element/input/netconf_names.h"
#include "element/input/xml_envelope.h"
#include "element/input/xml_reader.h"
#include "element/profile/interface_collector.h"

namespace element {
namespace {

/// Depths within a container of interfaces, itself 1.
constexpr std::size_t kInterfaceDepth = 2;
constexpr std::size_t kLeafDepth = 3;

class XmlInterfaces : public XmlEvents {
 public:
  explicit XmlInterfaces(const std::string &file) : envelope_(file), collector_(file) {}

  void start(const XmlElement &element) override {
    if (depth_ == 0 && envelope_.takes(element)) return;
    ++depth_;
    const bool is_own = element.name_space() == kInterfacesNamespace;
    if (depth_ == 1) {
      container_ = is_own && is_interface_container(element.name()) ? std::string(element.name()) : "";
    }
    if (container_.empty()) return;
    if (depth_ == kInterfaceDepth) {
      is_in_interface_ = is_own && element.name() == "interface";
      if (is_in_interface_) collector_.begin(container_, element.line());
    }
    if (depth_ != kLeafDepth || !is_in_interface_) return;
    leaf_ = is_own ? std::string(element.name()) : "";
    line_ = element.line();
    text_.clear();
  }

  void text(std::string_view part) override {
    if (depth_ == 0) {
      envelope_.text(part);
    } else if (depth_ == kLeafDepth && is_in_interface_) {
      text_ += part;
    }
  }

  void end() override {
    if (depth_ == 0) return envelope_.end();
    if (is_in_interface_ && depth_ == kLeafDepth) collector_.leaf(leaf_, text_, line_);
    if (is_in_interface_ && depth_ == kInterfaceDepth) {
      collector_.end();
      is_in_interface_ = false;
    }
    if (--depth_ == 0) container_.clear();
  }

  std::vector<InterfaceData> take_result() { return collector_.take_result(); }

 private:
  XmlEnvelope envelope_;
  InterfaceCollector collector_;
  std::size_t depth_ = 0;  ///< below the envelope
  std::string container_;  ///< that is open; empty: another element is
  bool is_in_interface_ = false;
  std::string leaf_;
  std::string text_;
  std::size_t line_ = 0;
};

class JsonInterfaces : public JsonEvents {
 public:
  explicit JsonInterfaces(const std::string &file) : file_(file), collector_(file) {}

  void name(std::string_view name, std::size_t line) override {
    names_.add(name, line, file_);
    name_ = name;
    line_ = line;
  }

  void scalar(const JsonScalar &value) override {
    if (is_in_interface() && open_.size() == base_ + kLeafDepth + 1) {
      collector_.leaf(bare(name_), value.kind == JsonKind::number ? whole_number(value.text) : std::string(value.text),
                      line_);
    }
    name_.clear();
  }

  void start_object(std::size_t line) override {
    open();
    if (is_in_interface() && open_.size() == base_ + kLeafDepth + 1) collector_.begin(container(), line);
  }

  void end_object() override {
    if (is_in_interface() && open_.size() == base_ + kLeafDepth + 1) collector_.end();
    close();
  }

  void start_array(std::size_t) override { open(); }
  void end_array() override { close(); }

  std::vector<InterfaceData> take_result() { return collector_.take_result(); }

 private:
  void open() {
    // The outermost object has no name; RESTCONF's envelope is as good as it.
    if (open_.size() == 1 && name_ == kRestconfData) base_ = 1;
    open_.push_back(std::exchange(name_, ""));
    names_.open();
  }

  void close() {
    open_.pop_back();
    names_.close();
    if (open_.size() <= 1) base_ = 0;
    name_.clear();
  }

  /// Without the module of ietf-interfaces; names of others stay whole.
  static std::string_view bare(std::string_view name) {
    const bool is_own = name.starts_with(kInterfacesModule) && name.substr(kInterfacesModule.size()).starts_with(':');
    return is_own ? name.substr(kInterfacesModule.size() + 1) : name;
  }

  std::string_view container() const { return bare(open_[base_ + 1]); }

  /// Open are the outermost object, the envelope if any, a container, its list and an entry of it.
  bool is_in_interface() const {
    if (open_.size() < base_ + kLeafDepth + 1) return false;
    const std::string_view outer = open_[base_ + 1];
    return bare(outer) != outer && is_interface_container(bare(outer)) && bare(open_[base_ + 2]) == "interface";
  }

  const std::string &file_;
  InterfaceCollector collector_;
  MemberNames names_;
  std::vector<std::string> open_;  ///< names of the objects and arrays that are open; empty for those without
  std::size_t base_ = 0;           ///< 1 inside an envelope
  std::string name_;               ///< of the value that comes next
  std::size_t line_ = 0;
};

std::vector<InterfaceData> read(InputPieces &input) {
  const char first = input.skip_blanks();
  if (first == '{') {
    JsonInterfaces interfaces(input.origin());
    read_json(input, interfaces);
    return interfaces.take_result();
  }
  // '#' begins NETCONF's chunks.
  if (first != '<' && first != '#') {
    throw input_fault({input.origin(), first == 0 ? 0 : input.next().line}, "neither XML nor a JSON object",
                      "operational data of ietf-interfaces");
  }
  XmlInterfaces interfaces(input.origin());
  read_xml(input, interfaces);
  return interfaces.take_result();
}

}  // namespace

std::vector<InterfaceData> read_interface_data(const std::filesystem::path &file) {
  InputPieces input(file);
  return read(input);
}

std::vector<InterfaceData> parse_interface_data(std::string_view text, const std::string &origin) {
  InputPieces input(text, origin);
  return read(input);
}

}  // namespace element
