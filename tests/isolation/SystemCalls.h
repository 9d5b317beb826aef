// Watches which files a piece of code opens and whether it reaches for the network: a filter in the
// kernel (seccomp) traps those system calls, whoever makes them, and a handler notes them.
#ifndef ZQXML_TESTS_ISOLATION_SYSTEMCALLS_H
#define ZQXML_TESTS_ISOLATION_SYSTEMCALLS_H

#include <functional>
#include <string>
#include <vector>

struct SystemCalls {
  int result = -1;                  // what the code returned
  std::vector<std::string> opened;  // paths, in order
  int network = 0;                  // calls that make or connect sockets; they are refused
  int programs = 0;                 // calls that start programs; they are refused
};

// Runs the code in a child process under the filter. The result is one byte.
SystemCalls watchSystemCalls(const std::function<int()>& code);

#endif
