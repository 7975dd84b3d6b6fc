#pragma once

#include <cstddef>
#include <deque>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "host/document/doc_state.h"

using UndoStates = std::vector<std::shared_ptr<DocState>>;

// Changes that are undone and redone in one step, in the order in which they were made.
struct UndoRecord {
  std::string caption;
  UndoStates states;
};

// What can be undone and redone. Of a thing that a record changes several times, only the first
// state is kept. When the records that can be undone have more than kMaxStates states together, the
// oldest are forgotten; the newest is kept whatever its size. The open record and those that can be
// redone aren't counted.
class UndoList {
 public:
  static constexpr std::size_t kMaxStates = 100000;

  // The number of the new record; 0 when one is open already.
  unsigned Begin(std::string_view caption);
  // False when the open record is another one, or there is none. A record without changes is
  // dropped.
  bool End(unsigned number);
  bool IsOpen() const { return open_.has_value(); }

  // Keeps the state that a change replaced: in the open record, else in one of its own. What was
  // undone can't be redone any more.
  void Add(const std::shared_ptr<DocState>& before);
  // Forgets all changes; a record that is open stays open.
  void Clear();

  // Of the record that is undone or redone next; nothing when there is none.
  std::optional<std::string> UndoCaption() const;
  std::optional<std::string> RedoCaption() const;
  // The states of the record that is undone next, which from now on is the one that is redone next,
  // and the other way round. There must be one.
  UndoStates MoveToRedoable();
  UndoStates MoveToUndoable();

 private:
  struct OpenRecord {
    unsigned number;
    UndoRecord record;
    std::set<DocSubject> subjects;
  };
  void Push(UndoRecord record);

  unsigned last_number_ = 0;
  std::optional<OpenRecord> open_;
  // The last one is undone or redone first.
  std::deque<UndoRecord> undoable_;
  std::vector<UndoRecord> redoable_;
  std::size_t undoable_states_ = 0;
};
