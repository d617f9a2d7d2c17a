// Console events, each with and without a child that runs.
#include <gtest/gtest.h>

#include "tests/transcripts/run.h"
#include "tests/transcripts/scenarios.h"

namespace qvx::test {
namespace {

/// 3, 4 and 7 are no events.
TEST(Transcript, OfEveryConsoleEventBeforeTheStart) {
  Scenario scenario = SerialRun();
  scenario.events = {
      {{"SHGetFolderPathA", 1}, {3, 4, 7}},
      {{"GetPrivateProfileStringA", 1},
       {CTRL_C_EVENT, CTRL_BREAK_EVENT, CTRL_CLOSE_EVENT, CTRL_LOGOFF_EVENT, CTRL_SHUTDOWN_EVENT}}};
  ExpectTranscript("console-events-before-the-start", scenario);
}

struct EventWithChild {
  DWORD code;
  std::string kind;
};

class EventsWithChild : public testing::TestWithParam<EventWithChild> {};

/// The first read brings a text, the event comes during the second.
TEST_P(EventsWithChild, EndIt) {
  Scenario scenario = SerialRun();
  scenario.children = {{.output = {"first\r\n", "never read"}, .exitCode = 0}};
  scenario.events = {{{"ReadFile", 2}, {GetParam().code}}};
  ExpectTranscript("console-event-" + GetParam().kind, scenario);
}

INSTANTIATE_TEST_SUITE_P(Transcript, EventsWithChild,
                         testing::Values(EventWithChild{CTRL_C_EVENT, "ctrl-c"},
                                         EventWithChild{CTRL_BREAK_EVENT, "ctrl-break"},
                                         EventWithChild{CTRL_CLOSE_EVENT, "close"},
                                         EventWithChild{CTRL_LOGOFF_EVENT, "logoff"},
                                         EventWithChild{CTRL_SHUTDOWN_EVENT, "shutdown"}),
                         [](const auto& info) { return "Code" + std::to_string(info.param.code); });

/// The same under the MPI process launcher; a number that is no event leaves the child alone.
TEST(Transcript, OfConsoleEventsInADistributedRun) {
  Scenario scenario = DmpRun();
  scenario.events = {{{"ReadFile", 1}, {4, CTRL_BREAK_EVENT, CTRL_C_EVENT}}};
  ExpectTranscript("console-events-distributed", scenario);
}

/// Between the banner and the creation there is no child to end yet; a later event ends it.
TEST(Transcript, OfAConsoleEventRightBeforeTheChild) {
  Scenario scenario = SmpRun();
  scenario.events = {{{"fflush", 1}, {CTRL_C_EVENT}}, {{"ReadFile", 1}, {CTRL_BREAK_EVENT}}};
  ExpectTranscript("console-event-right-before-the-child", scenario);
}

/// The child has gone; its identifier still stands, and the run's result holds.
TEST(Transcript, OfAConsoleEventInTheCountdown) {
  Scenario scenario = SerialRun();
  scenario.events = {{{"Sleep", 2}, {CTRL_C_EVENT}}, {{"Sleep", 4}, {CTRL_C_EVENT}}};
  ExpectTranscript("console-event-in-the-countdown", scenario);
}

/// Both are tried once, and the run goes on.
TEST(Transcript, OfAChildThatTheHandlerCannotEnd) {
  Scenario scenario = SerialRun();
  scenario.children = {{.output = {"first", "second"}, .exitCode = 6}};
  scenario.failures = {{{"TerminateProcess", 1}, ERROR_ACCESS_DENIED}};
  scenario.events = {{{"ReadFile", 2}, {CTRL_C_EVENT}}};
  ExpectTranscript("console-event-child-not-ended", scenario);
}

TEST(Transcript, OfAChildThatTheHandlerCannotOpen) {
  Scenario scenario = SmpRun();
  scenario.children = {{.output = {"first", "second"}, .exitCode = 6}};
  scenario.failures = {{{"OpenProcess", 1}, ERROR_ACCESS_DENIED}};
  scenario.events = {{{"ReadFile", 2}, {CTRL_C_EVENT}}};
  ExpectTranscript("console-event-child-not-opened", scenario);
}

}  // namespace
}  // namespace qvx::test
