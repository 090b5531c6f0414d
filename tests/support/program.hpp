#pragma once
// Programs, run as their users run them: through the shell.

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace co2_properties::test {

struct Outcome {
  int status = -1;
  std::string out;
  std::string err;
};

inline std::vector<std::string> split(const std::string& text, const char separator) {
  std::vector<std::string> parts;
  std::string part;
  for (std::istringstream stream(text); std::getline(stream, part, separator);) {
    parts.push_back(part);
  }
  return parts;
}

/// What a command line has to end with, and what it has to say on the standard error.
struct Exit {
  const char* why;
  std::string arguments;
  int status;
  const char* message;

  /// Silent where it succeeds without a message.
  void expect(const Outcome& outcome) const {
    SCOPED_TRACE(testing::Message() << why << ": " << arguments);
    EXPECT_EQ(outcome.status, status) << outcome.err;
    EXPECT_NE(outcome.err.find(message), std::string::npos) << outcome.err;
    EXPECT_EQ(outcome.err.empty(), status == 0 && *message == '\0') << outcome.err;
  }
};

/// A folder of its own for each test, since tests may run at once.
class ProgramTest : public testing::Test {
 protected:
  ProgramTest() {
    std::string name = std::filesystem::temp_directory_path() / "co2_test_XXXXXX";
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
    folder_ = name;
  }
  ~ProgramTest() override { std::filesystem::remove_all(folder_); }

  [[nodiscard]] std::string path(const std::string& name) const { return folder_ / name; }
  void write(const std::string& name, const std::string& text) const {
    std::ofstream(path(name), std::ios::binary) << text;
  }
  [[nodiscard]] std::string read(const std::string& name) const {
    std::ifstream file(path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  /// Runs a command in the folder of the test.
  [[nodiscard]] Outcome shell(const std::string& command, const std::string& input = "") const {
    write("stdin", input);
    const std::string line =
        "cd '" + path("") + "' && { " + command + "; } <stdin >stdout 2>stderr";
    const int status = std::system(line.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, read("stdout"), read("stderr")};
  }

 private:
  std::filesystem::path folder_;
};

}  // namespace co2_properties::test
