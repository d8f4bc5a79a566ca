#pragma once
// The machine the phone runs on: what the device's own calls cannot do is done there.

#include <string>

/// Runs a shell script (UTF-8) on the host, in the device folder, and waits for its end. Its output lands in
/// the test's report when it fails, and the test ends by exception.
void RunOnHost(const std::string& script);

/// An environment variable of the host; empty when it is not set.
std::string HostVariable(const char* name);

/// Keeps a picture of the phone's screen as `name`.png among the build's test failures. Says where.
std::string KeepScreenshot(const std::string& name);

/// Whether the program is the phone's own executable, which the workbench runs.
bool RunsPhoneProgram();

/// What that executable has done since the last call that a phone would punish; empty when all was well.
std::string TakePhoneReport();
