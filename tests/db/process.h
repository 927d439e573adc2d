// Programs that a test runs: servers in the background, clients for their output.
#ifndef VANDPUBLIC_TESTS_DB_PROCESS_H
#define VANDPUBLIC_TESTS_DB_PROCESS_H

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

namespace vandpublic::db_tests {

using Arguments = std::vector<std::string>;

// A program in the background. Where the tests run as the superuser it runs as an ordinary one.
// The destructor kills it.
class Process {
 public:
  // What it prints goes to the file.
  Process(const Arguments& arguments, const std::filesystem::path& log);
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;
  ~Process();

  pid_t pid() const noexcept { return pid_; }
  // Sends the signal and waits for the end.
  void End(int signal);

 private:
  pid_t pid_ = -1;
};

// Runs a program to its end as an ordinary user and gives what it printed, without the last line
// end. Throws with that text when it fails.
std::string RunProgram(const Arguments& arguments, const std::string& input = {});

// Gives a folder to the user that these programs run as.
void GiveToOrdinaryUser(const std::filesystem::path& folder);

// A port of 127.0.0.1 that nobody listens on at the moment.
int FreePort();

// The first file that fits one of the patterns, "" when there is none.
std::string FindFile(const std::vector<std::string>& patterns);

}  // namespace vandpublic::db_tests

#endif
