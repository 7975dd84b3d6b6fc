#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

// What the stand-ins share.

// The act that the test asks for; empty for the usual one.
std::string RequestedAct();
// Adds to the test's record, if there is one, how this program was started. `grandchild`: the
// process that it has started itself; 0 for none.
void RecordRun(const std::vector<std::string>& command, pid_t grandchild);
// Sleeps until a signal ends the program, or for a minute, so that a test that fails leaves nothing
// behind for long.
void Hang();
