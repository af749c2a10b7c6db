#ifndef TESTS_ELEMENT_CONFIGURATION_TEXT_H
#define TESTS_ELEMENT_CONFIGURATION_TEXT_H

#include <string>

/// `content` inside the containers above it, three lines of which `content` begins on the second.
inline std::string base_xml(const std::string &content) {
  return "<config xmlns=\"urn:element:base\">\n" + content + "\n</config>";
}

inline std::string base_json(const std::string &content) { return "{\"base:config\": {\n" + content + "\n}}"; }

inline std::string l2vpn_xml(const std::string &content) {
  return "<mpls xmlns=\"urn:element:mpls\"><l2vpn-config xmlns=\"urn:element:l2-vpn\"><l2vpn>\n" + content +
         "\n</l2vpn></l2vpn-config></mpls>";
}

inline std::string l2vpn_json(const std::string &content) {
  return "{\"mpls:mpls\": {\"l2-vpn:l2vpn-config\": {\"l2vpn\": {\n" + content + "\n}}}}";
}

#endif
