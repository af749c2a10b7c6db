#include "maintenance/hooks/library_slots.h"

#include <dlfcn.h>
#include <elf.h>
#include <link.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace hooks {

namespace {

#if defined(__x86_64__)
constexpr unsigned kJumpSlot = R_X86_64_JUMP_SLOT;
constexpr unsigned kDataSlots[] = {R_X86_64_GLOB_DAT, R_X86_64_64};
#elif defined(__aarch64__)
constexpr unsigned kJumpSlot = R_AARCH64_JUMP_SLOT;
constexpr unsigned kDataSlots[] = {R_AARCH64_GLOB_DAT, R_AARCH64_ABS64};
#else
#error "the relocations of this machine are not known here"
#endif

/// A range of addresses.
struct Range {
  ElfW(Addr) begin = 0;
  ElfW(Addr) end = 0;

  bool contains(ElfW(Addr) address) const { return address >= begin && address < end; }
};

/// What the program headers of a loaded library tell.
struct Segments {
  ElfW(Addr) base = 0;
  std::vector<Range> writable;
  std::vector<Range> read_only_after_start;
  std::vector<Range> notes;
  bool is_found = false;
};

// The loader protects whole pages, and only those that lie in the range to their end.
Range whole_pages(Range range) {
  const auto page = static_cast<ElfW(Addr)>(::sysconf(_SC_PAGESIZE));
  return {range.begin / page * page, range.end / page * page};
}

int read_segments(dl_phdr_info *info, std::size_t /*size*/, void *data) {
  Segments &segments = *static_cast<Segments *>(data);
  if (info->dlpi_addr != segments.base) return 0;
  segments.is_found = true;
  for (std::size_t i = 0; i < info->dlpi_phnum; ++i) {
    const ElfW(Phdr) &header = info->dlpi_phdr[i];
    const Range range{info->dlpi_addr + header.p_vaddr, info->dlpi_addr + header.p_vaddr + header.p_memsz};
    if (header.p_type == PT_LOAD && (header.p_flags & PF_W) != 0) segments.writable.push_back(range);
    if (header.p_type == PT_GNU_RELRO) segments.read_only_after_start.push_back(whole_pages(range));
    if (header.p_type == PT_NOTE) segments.notes.push_back(range);
  }
  return 1;
}

bool is_in(const std::vector<Range> &ranges, ElfW(Addr) address) {
  return std::any_of(ranges.begin(), ranges.end(), [address](const Range &range) { return range.contains(address); });
}

/// The dynamic section of a loaded library.
class Dynamic {
 public:
  explicit Dynamic(const link_map &map) : base_(map.l_addr), entries_(map.l_ld) {}

  bool has(ElfW(Sxword) tag) const { return find(tag) != nullptr; }

  ElfW(Xword) number(ElfW(Sxword) tag) const {
    const ElfW(Dyn) *entry = find(tag);
    return entry == nullptr ? 0 : entry->d_un.d_val;
  }

  /// Some loaders put addresses into the section, others leave the distances from the library's start.
  template <typename T>
  const T *table(ElfW(Sxword) tag) const {
    const ElfW(Dyn) *entry = find(tag);
    if (entry == nullptr) return nullptr;
    const ElfW(Addr) address = entry->d_un.d_ptr < base_ ? base_ + entry->d_un.d_ptr : entry->d_un.d_ptr;
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the loader tells addresses as numbers
    return reinterpret_cast<const T *>(address);
  }

 private:
  const ElfW(Dyn) * find(ElfW(Sxword) tag) const {
    for (const ElfW(Dyn) *entry = entries_; entry->d_tag != DT_NULL; ++entry) {
      if (entry->d_tag == tag) return entry;
    }
    return nullptr;
  }

  ElfW(Addr) base_;
  const ElfW(Dyn) * entries_;
};

/// Reads the relocations of a library that name symbols of others.
class SlotReader {
 public:
  SlotReader(const Dynamic &dynamic, const Segments &segments)
      : segments_(segments),
        symbols_(dynamic.table<ElfW(Sym)>(DT_SYMTAB)),
        names_(dynamic.table<char>(DT_STRTAB)),
        versions_(dynamic.table<ElfW(Half)>(DT_VERSYM)) {}

  void read(const ElfW(Rela) * relocations, ElfW(Xword) bytes, std::vector<Slot> &slots) const {
    if (relocations == nullptr || symbols_ == nullptr || names_ == nullptr) return;
    for (std::size_t i = 0; i < bytes / sizeof(ElfW(Rela)); ++i) read(relocations[i], slots);
  }

 private:
  void read(const ElfW(Rela) & relocation, std::vector<Slot> &slots) const {
    const auto type = static_cast<unsigned>(ELF64_R_TYPE(relocation.r_info));
    const bool is_call = type == kJumpSlot;
    const bool is_data = std::find(std::begin(kDataSlots), std::end(kDataSlots), type) != std::end(kDataSlots);
    if (!is_call && !(is_data && relocation.r_addend == 0)) return;
    const std::size_t index = ELF64_R_SYM(relocation.r_info);
    const ElfW(Sym) &symbol = symbols_[index];
    if (symbol.st_shndx != SHN_UNDEF || ELF64_ST_BIND(symbol.st_info) == STB_WEAK) return;

    const ElfW(Addr) address = segments_.base + relocation.r_offset;
    Slot slot;
    slot.symbol = names_ + symbol.st_name;
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the loader tells addresses as numbers
    slot.address = reinterpret_cast<void **>(address);
    slot.is_writable = is_in(segments_.writable, address) && !is_in(segments_.read_only_after_start, address);
    slot.is_call = is_call;
    slot.is_versioned = versions_ != nullptr && (versions_[index] & 0x7fffU) > VER_NDX_GLOBAL;
    slots.push_back(slot);
  }

  const Segments &segments_;
  const ElfW(Sym) * symbols_;
  const char *names_;
  const ElfW(Half) * versions_;
};

const link_map *map_of(void *library) {
  link_map *map = nullptr;
  return ::dlinfo(library, RTLD_DI_LINKMAP, &map) == 0 ? map : nullptr;
}

Segments segments_of(const link_map &map) {
  Segments segments;
  segments.base = map.l_addr;
  ::dl_iterate_phdr(read_segments, &segments);
  return segments;
}

std::string hexadecimal(const unsigned char *bytes, std::size_t size) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string text;
  for (std::size_t i = 0; i < size; ++i) {
    text += kDigits[bytes[i] >> 4];
    text += kDigits[bytes[i] & 15];
  }
  return text;
}

std::size_t padded(std::size_t size) { return (size + 3) / 4 * 4; }

}  // namespace

LibrarySlots read_slots(void *library) {
  LibrarySlots result;
  const link_map *map = map_of(library);
  if (map == nullptr) {
    result.problem = "the loader does not tell where it lies";
    return result;
  }
  const Segments segments = segments_of(*map);
  if (!segments.is_found) {
    result.problem = "the loader does not list its segments";
    return result;
  }
  const Dynamic dynamic(*map);
  const SlotReader reader(dynamic, segments);
  reader.read(dynamic.table<ElfW(Rela)>(DT_RELA), dynamic.number(DT_RELASZ), result.slots);
  const bool has_calls = dynamic.has(DT_JMPREL) && dynamic.number(DT_PLTREL) == DT_RELA;
  if (has_calls) reader.read(dynamic.table<ElfW(Rela)>(DT_JMPREL), dynamic.number(DT_PLTRELSZ), result.slots);
  return result;
}

std::string build_id(void *library) {
  const link_map *map = map_of(library);
  if (map == nullptr) return "none";
  for (const Range &range : segments_of(*map).notes) {
    ElfW(Addr) at = range.begin;
    while (at + sizeof(ElfW(Nhdr)) <= range.end) {
      // NOLINTNEXTLINE(performance-no-int-to-ptr): the loader tells addresses as numbers
      const auto *note = reinterpret_cast<const ElfW(Nhdr) *>(at);
      const auto *name = reinterpret_cast<const char *>(note + 1);
      const auto *content = reinterpret_cast<const unsigned char *>(name + padded(note->n_namesz));
      const bool is_build_id = note->n_type == NT_GNU_BUILD_ID && note->n_namesz == sizeof ELF_NOTE_GNU &&
                               std::memcmp(name, ELF_NOTE_GNU, sizeof ELF_NOTE_GNU) == 0;
      if (is_build_id) return hexadecimal(content, note->n_descsz);
      at += sizeof(ElfW(Nhdr)) + padded(note->n_namesz) + padded(note->n_descsz);
    }
  }
  return "none";
}

}  // namespace hooks
