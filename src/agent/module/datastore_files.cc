#include "agent/module/datastore_files.h"

#include <fmt/format.h>

#include <stdexcept>

#include "agent/core/kept_file.h"

namespace agent {

void write_datastore(val_value_t *root, const std::filesystem::path &file) {
  xml_attrs_t attributes;
  xml_init_attrs(&attributes);
  const status_t result =
      xml_wr_check_file(to_xml(file.string()), root, &attributes, XMLMODE, WITHHDR, TRUE, 0, 2, agt_check_save);
  xml_clean_attrs(&attributes);
  if (result != NO_ERR) {
    throw std::runtime_error(fmt::format("{}: cannot be written: {}", file.string(), get_error_string(result)));
  }
}

void keep_datastore(val_value_t *root, const std::filesystem::path &file) {
  std::filesystem::path part = file;
  part += ".part";
  write_datastore(root, part);
  replace_file(part, file);
}

}  // namespace agent
