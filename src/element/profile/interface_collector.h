#ifndef ELEMENT_PROFILE_INTERFACE_COLLECTOR_H
#define ELEMENT_PROFILE_INTERFACE_COLLECTOR_H

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "element/profile/interface_data.h"

namespace element {

inline constexpr std::string_view kInterfacesModule = "ietf-interfaces";
inline constexpr std::string_view kInterfacesNamespace = "urn:ietf:params:xml:ns:yang:ietf-interfaces";

/// Whether it is the name of a container of ietf-interfaces that holds interfaces.
bool is_interface_container(std::string_view name);

/// Takes the interfaces of a file, whatever its format, and puts together what is told of one interface.
class InterfaceCollector {
 public:
  /// Errors name `file`.
  explicit InterfaceCollector(std::string file);

  /// An interface of this container begins.
  void begin(std::string_view container, std::size_t line);
  /// A leaf of it; those that do not matter are passed over.
  void leaf(std::string_view name, std::string_view text, std::size_t line);
  void end();

  std::vector<InterfaceData> take_result();

 private:
  std::string file_;
  std::string container_;
  InterfaceData open_;
  std::vector<InterfaceData> interfaces_;               ///< in the order of the file
  std::map<std::string, std::size_t> places_;           ///< in `interfaces_`, by name
  std::map<std::string, std::size_t> container_lines_;  ///< by container and name
};

}  // namespace element

#endif
