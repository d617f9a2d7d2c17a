// Serial runs.
#include <gtest/gtest.h>

#include "tests/transcripts/run.h"
#include "tests/transcripts/scenarios.h"

namespace qvx::test {
namespace {

TEST(Transcript, Serial) { ExpectTranscript("serial", SerialRun()); }
TEST(Transcript, Smp) { ExpectTranscript("shared-memory", SmpRun()); }
TEST(Transcript, Dmp) { ExpectTranscript("distributed", DmpRun()); }

}  // namespace
}  // namespace qvx::test
