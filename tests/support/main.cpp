// The main program of tests that add none by themselves.
#include "tests/support/run_tests.h"

int main(int count, char** arguments) { return qvx::test::RunTests(count, arguments); }
