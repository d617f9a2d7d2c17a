// Runs the tests of a program that starts processes under Wine. There a start now and then fails
// with the system's error 1359, before the new process ran: that one start is repeated, once, said
// and counted. The count is the program's last line.
#pragma once

namespace qvx::test {

/// The program's exit status.
int RunTests(int count, char** arguments);

}  // namespace qvx::test
