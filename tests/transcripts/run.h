// Carries out a scenario through the launcher's entry sequence and compares its transcript with the
// one that is kept beside the tests.
#pragma once

#include <string>

#include "tests/transcripts/scenario.h"

namespace qvx::test {

/// `kind`: names the transcript's file. With QVX_RENEW_TRANSCRIPTS set in the environment the file
/// is written anew instead of compared.
void ExpectTranscript(const std::string& kind, const Scenario& scenario);

/// The same for a run that a fault ends, and the process with it.
void ExpectTranscriptOfFault(const std::string& kind, const Scenario& scenario);

/// Where a file of the scenario's really lies.
std::string RealPath(const std::string& path);

/// Takes down what the present run leaves and stores its transcript.
void EndRun();

}  // namespace qvx::test
