#include "host/command/line_editor.h"

#include <poll.h>
#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <string_view>
#include <system_error>
#include <vector>

#include "host/command/completion.h"
#include "host/system/interrupt.h"
#include "host/system/path.h"
#include "host/system/text.h"

namespace {

constexpr int kHistorySize = 1000;

// How many bytes a character has whose first byte is `first`; 1 for a malformed one.
int SequenceLength(unsigned char first) {
  if (first >= 0xF0 && first < 0xF8) return 4;
  if (first >= 0xE0) return first < 0xF0 ? 3 : 1;
  return first >= 0xC0 ? 2 : 1;
}

// Waits until there is something to read or Ctrl-C is pressed. The signal comes through only while
// it waits, so that none is missed between the question and the waiting.
void WaitForKey() {
  sigset_t interrupt;
  sigset_t before;
  sigemptyset(&interrupt);
  sigaddset(&interrupt, SIGINT);
  sigprocmask(SIG_BLOCK, &interrupt, &before);
  pollfd terminal = {STDIN_FILENO, POLLIN, 0};
  if (!host::InterruptRequested()) ppoll(&terminal, 1, nullptr, &before);
  sigprocmask(SIG_SETMASK, &before, nullptr);
}

// The next byte of the terminal: 1, 0 at the end of the input, -1 on an error or an interrupt.
int ReadByte(unsigned char& byte) {
  for (;;) {
    WaitForKey();
    if (host::InterruptRequested()) return -1;
    const ssize_t count = read(STDIN_FILENO, &byte, 1);
    if (count >= 0) return static_cast<int>(count);
    if (errno != EINTR) return -1;
  }
}

}  // namespace

LineEditor::LineEditor(std::string history_path)
    : out_(isatty(STDOUT_FILENO) != 0 ? stdout : stderr),
      history_(history_init()),
      editor_(el_init("orvhost", stdin, out_, stderr)),
      history_path_(std::move(history_path)) {
  EditLine* editor = editor_.get();
  el_set(editor, EL_CLIENTDATA, this);
  el_set(editor, EL_PROMPT, &LineEditor::PromptText);
  el_set(editor, EL_EDITOR, "emacs");
  el_set(editor, EL_SIGNAL, 0);
  el_set(editor, EL_GETCFN, &LineEditor::ReadCharacter);
  // The wide form keeps the texts where they are; the narrow one loses its copies of them.
  using CompleteFunction = unsigned char (*)(EditLine*, int);
  el_wset(editor, EL_ADDFN, L"orv-complete", L"Complete the word",
          static_cast<CompleteFunction>(&LineEditor::CompleteWord));
  el_set(editor, EL_BIND, "^I", "orv-complete", nullptr);
  el_set(editor, EL_HIST, history, history_.get());
  LoadHistory();
  el_source(editor, nullptr);
}

LineEditor::~LineEditor() {
  SaveHistory();
}

LineEditor& LineEditor::Of(EditLine* editor) {
  void* self = nullptr;
  el_get(editor, EL_CLIENTDATA, &self);
  return *static_cast<LineEditor*>(self);
}

char* LineEditor::PromptText(EditLine* editor) {
  return Of(editor).prompt_text_.data();
}

int LineEditor::ReadCharacter(EditLine*, wchar_t* character) {
  unsigned char byte = 0;
  const int read = ReadByte(byte);
  if (read != 1) return read;
  const int length = SequenceLength(byte);
  constexpr unsigned char kFirstByteBits[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
  unsigned value = byte & kFirstByteBits[length];
  for (int i = 1; i < length; ++i) {
    const int next = ReadByte(byte);
    if (next != 1) return next;
    value = value << 6 | (byte & 0x3FU);
  }
  *character = static_cast<wchar_t>(length == 1 && byte >= 0x80 ? 0xFFFD : value);
  return 1;
}

LineEditor::Line LineEditor::Read(const Prompt& prompt) {
  prompt_ = prompt;
  prompt_text_ = prompt.Line();
  std::fflush(out_);
  el_resize(editor_.get());
  // Before the prompt is shown: keys that are pressed from then on are taken as keys.
  el_set(editor_.get(), EL_PREP_TERM, 1);
  int length = 0;
  const char* typed = el_gets(editor_.get(), &length);
  if (host::InterruptRequested()) {
    host::ClearInterrupt();
    std::fputs("\n", out_);
    return {End::interrupt, {}};
  }
  if (typed == nullptr || length <= 0) {
    std::fputs("\n", out_);
    return {End::end_of_input, {}};
  }
  std::string line(typed, static_cast<std::size_t>(length));
  while (line.ends_with('\n') || line.ends_with('\r')) line.pop_back();
  Remember(line);
  return {End::line, std::move(line)};
}

unsigned char LineEditor::CompleteWord(EditLine* editor, int) {
  return Of(editor).CompleteWord();
}

unsigned char LineEditor::CompleteWord() {
  const LineInfo* info = el_line(editor_.get());
  const std::string line(info->buffer, static_cast<std::size_t>(info->cursor - info->buffer));
  const Completion completion = Complete(prompt_, line);
  if (completion.candidates.empty()) return CC_ERROR;
  const std::string_view begun = std::string_view(line).substr(completion.start);
  std::string text = completion.CommonPrefix();
  const bool single = completion.candidates.size() == 1;
  if (single && !prompt_.TakesText && !text.ends_with('=')) text += ' ';
  if (text.size() >= begun.size() && text != begun) {
    el_deletestr(editor_.get(), static_cast<int>(host::CodePointCount(begun)));
    el_insertstr(editor_.get(), text.c_str());
    return CC_REFRESH;
  }
  if (single) return CC_ERROR;
  ShowCandidates(completion.candidates);
  return CC_REDISPLAY;
}

void LineEditor::ShowCandidates(const std::vector<std::string>& candidates) const {
  constexpr std::size_t kLineWidth = 80;
  std::size_t width = 0;
  for (const std::string& name : candidates) width = std::max(width, host::CodePointCount(name));
  width += 2;
  const std::size_t columns = std::max<std::size_t>(1, kLineWidth / width);
  for (std::size_t i = 0; i < candidates.size(); ++i) {
    const std::string padding(width - host::CodePointCount(candidates[i]), ' ');
    std::fprintf(out_, "%s%s%s", i % columns == 0 ? "\n" : "", candidates[i].c_str(),
                 padding.c_str());
  }
  std::fputs("\n", out_);
}

void LineEditor::Remember(const std::string& line) {
  if (host::Trimmed(line).empty()) return;
  HistEvent event;
  history(history_.get(), &event, H_ENTER, line.c_str());
}

void LineEditor::LoadHistory() {
  HistEvent event;
  history(history_.get(), &event, H_SETSIZE, kHistorySize);
  history(history_.get(), &event, H_SETUNIQUE, 1);
  if (!history_path_.empty()) {
    history(history_.get(), &event, H_LOAD, host::NativePath(history_path_).c_str());
  }
}

void LineEditor::SaveHistory() {
  if (history_path_.empty()) return;
  const std::filesystem::path path = host::NativePath(history_path_);
  std::error_code ignored;
  std::filesystem::create_directories(path.parent_path(), ignored);
  HistEvent event;
  history(history_.get(), &event, H_SAVE, path.c_str());
}
