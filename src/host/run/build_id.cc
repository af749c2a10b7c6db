#include "host/run/build_id.h"

#include <elf.h>
#include <fmt/format.h>
#include <link.h>

#include <cstring>
#include <fstream>
#include <optional>
#include <string_view>

namespace host {

namespace {

/// A structure of the file at an offset, or nothing where the file ends before it does.
template <typename T>
std::optional<T> read_at(std::string_view file, std::size_t offset) {
  if (offset > file.size() || file.size() - offset < sizeof(T)) return std::nullopt;
  T result;
  std::memcpy(&result, file.data() + offset, sizeof(T));
  return result;
}

std::string_view part(std::string_view file, std::size_t offset, std::size_t size) {
  return offset > file.size() ? std::string_view{} : file.substr(offset, size);
}

std::size_t padded(std::size_t size) { return (size + 3U) & ~std::size_t{3U}; }

/// The content of the build id note among a segment's notes; empty where there is none.
std::string_view find_build_id(std::string_view notes) {
  while (const auto note = read_at<ElfW(Nhdr)>(notes, 0)) {
    const std::size_t name_at = sizeof *note;
    const std::size_t content_at = name_at + padded(note->n_namesz);
    const std::string_view name = part(notes, name_at, note->n_namesz);
    const std::string_view content = part(notes, content_at, note->n_descsz);
    if (note->n_type == NT_GNU_BUILD_ID && name == std::string_view("GNU\0", 4)) return content;
    notes = part(notes, content_at + padded(note->n_descsz), notes.size());
  }
  return {};
}

std::string in_hexadecimal(std::string_view bytes) {
  std::string text;
  for (const char byte : bytes) text += fmt::format("{:02x}", static_cast<unsigned char>(byte));
  return text;
}

std::string content_of(const std::filesystem::path &file) {
  if (!std::filesystem::is_regular_file(file)) return {};
  std::string content(std::filesystem::file_size(file), '\0');
  std::ifstream stream(file, std::ios::binary);
  stream.read(content.data(), static_cast<std::streamsize>(content.size()));
  content.resize(static_cast<std::size_t>(stream.gcount()));
  return content;
}

}  // namespace

std::string build_id(const std::filesystem::path &file) {
  const std::string content = content_of(file);
  const auto header = read_at<ElfW(Ehdr)>(content, 0);
  if (!header || std::memcmp(header->e_ident, ELFMAG, SELFMAG) != 0) return "none";

  for (std::size_t i = 0; i < header->e_phnum; ++i) {
    const auto segment = read_at<ElfW(Phdr)>(content, header->e_phoff + i * header->e_phentsize);
    if (!segment || segment->p_type != PT_NOTE) continue;
    const std::string_view id = find_build_id(part(content, segment->p_offset, segment->p_filesz));
    if (!id.empty()) return in_hexadecimal(id);
  }
  return "none";
}

}  // namespace host
