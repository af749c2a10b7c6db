#include "element/input/input_text.h"

#include <unistd.h>

#include <filesystem>

#include "element/input/input_error.h"
#include "temporary_file.h"

namespace {

using element::read_input;

template <typename Error>
std::string error_of(const std::filesystem::path &file) {
  try {
    read_input(file);
  } catch (const Error &error) {
    return error.what();
  }
  return "no error";
}

TEST(InputText, is_the_files_whole_content) {
  const std::string content = std::string(200000, 'x') + '\0' + "end\n";
  EXPECT_EQ(read_input(TemporaryFile(content).path()), content);
  EXPECT_EQ(read_input(TemporaryFile("").path()), "");
}

TEST(InputText, missing_file) {
  EXPECT_EQ(error_of<element::FileError>("no-such-file"),
            "no-such-file: cannot be read: No such file or directory; expected a readable file");
}

TEST(InputText, directory) {
  const std::string directory = testing::TempDir();
  EXPECT_EQ(error_of<element::FileError>(directory),
            directory + ": cannot be read: Is a directory; expected a readable file");
}

TEST(InputText, no_permission) {
  const TemporaryFile file("{}");
  std::filesystem::permissions(file.path(), std::filesystem::perms::none);
  // The superuser may read every file, so the test becomes somebody else for a while.
  constexpr uid_t kNobody = 65534;
  const uid_t user = geteuid();
  if (user == 0 && seteuid(kNobody) != 0) GTEST_SKIP() << "the superuser cannot become another user here";
  const std::string error = error_of<element::FileError>(file.path());
  ASSERT_EQ(seteuid(user), 0);
  EXPECT_EQ(error, file.path().string() + ": cannot be read: Permission denied; expected a readable file");
}

TEST(InputText, file_beyond_the_largest_size) {
  const TemporaryFile file;
  std::filesystem::resize_file(file.path(), element::kMaxInputSize + 1);
  EXPECT_EQ(error_of<element::InputError>(file.path()),
            file.path().string() + ": is larger than 1073741824 bytes; expected a file of at most that size");
}

TEST(InputText, quote_is_one_printable_line) {
  EXPECT_EQ(element::one_line("a \"b\"\n\x1b[31m\xff"), R"(a "b"\x0a\x1b[31m\xff)");
  EXPECT_EQ(element::one_line("z\xc3\xbcrich \xc2\x9b \xe2\x80\xae \xe2\x80"),
            "z\xc3\xbcrich \\x9b \\u202e \\xe2\\x80");
  EXPECT_EQ(element::one_line(std::string(400, 'y')), std::string(400, 'y'));
  EXPECT_EQ(element::one_line(std::string(401, 'y')), std::string(400, 'y') + "...");
}

}  // namespace
