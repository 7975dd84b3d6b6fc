#pragma once

#include <histedit.h>

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "host/command/input_source.h"

// A line of the terminal that is being edited: prompt, history, completion.
class LineEditor {
 public:
  // Reads the standard input. The history is kept in the file `history_path`, unless that is empty.
  explicit LineEditor(std::string history_path);
  // Saves the history.
  ~LineEditor();
  LineEditor(const LineEditor&) = delete;
  LineEditor& operator=(const LineEditor&) = delete;

  enum class End { line, interrupt, end_of_input };
  struct Line {
    End end = End::end_of_input;
    // Without its line end.
    std::string text;
  };
  // Shows the prompt and waits for a line.
  Line Read(const Prompt& prompt);

 private:
  static char* PromptText(EditLine* editor);
  static int ReadCharacter(EditLine* editor, wchar_t* character);
  static unsigned char CompleteWord(EditLine* editor, int key);
  static LineEditor& Of(EditLine* editor);
  unsigned char CompleteWord();
  void ShowCandidates(const std::vector<std::string>& candidates) const;
  void Remember(const std::string& line);
  void LoadHistory();
  void SaveHistory();

  struct EndHistory {
    void operator()(History* history) const { history_end(history); }
  };
  struct EndEditor {
    void operator()(EditLine* editor) const { el_end(editor); }
  };
  std::FILE* out_;
  std::unique_ptr<History, EndHistory> history_;
  std::unique_ptr<EditLine, EndEditor> editor_;
  std::string history_path_;
  std::string prompt_text_;
  Prompt prompt_;
};
