#pragma once

#include <Message_ProgressIndicator.hxx>
#include <chrono>

namespace host {

// Ends the mesher on Ctrl-C, and when it has taken longer than any sound geometry does.
class MeshingLimit : public Message_ProgressIndicator {
 public:
  explicit MeshingLimit(std::chrono::steady_clock::duration time)
      : end_(std::chrono::steady_clock::now() + time) {}

  // Asked from all threads of the mesher.
  Standard_Boolean UserBreak() override;

 protected:
  void Show(const Message_ProgressScope&, Standard_Boolean) override {}

 private:
  const std::chrono::steady_clock::time_point end_;
};

}  // namespace host
