#pragma once

// Ctrl-C. A command that takes long asks now and then whether it is to stop.
namespace host {

// From now on Ctrl-C (SIGINT) sets a mark instead of ending the program. A blocking read returns.
void CatchInterrupts();

// True when Ctrl-C was pressed since the mark was last cleared. Costs one load.
[[nodiscard]] bool InterruptRequested();

// Sets the mark, as Ctrl-C does.
void RequestInterrupt();
// Clears the mark; done by whoever has ended what was to be ended.
void ClearInterrupt();

}  // namespace host
