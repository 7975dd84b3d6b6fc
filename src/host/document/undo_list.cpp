#include "host/document/undo_list.h"

unsigned UndoList::Begin(std::string_view caption) {
  if (open_) return 0;
  if (++last_number_ == 0) ++last_number_;
  open_ = OpenRecord{last_number_, {std::string(caption), {}}, {}};
  return last_number_;
}

bool UndoList::End(unsigned number) {
  if (!open_ || open_->number != number) return false;
  UndoRecord record = std::move(open_->record);
  open_.reset();
  if (!record.states.empty()) Push(std::move(record));
  return true;
}

void UndoList::Add(const std::shared_ptr<DocState>& before) {
  redoable_.clear();
  if (!open_) {
    Push({std::string(ChangeCaption(*before)), {before}});
  } else if (open_->subjects.insert(SubjectOf(*before)).second) {
    open_->record.states.push_back(before);
  }
}

void UndoList::Push(UndoRecord record) {
  undoable_states_ += record.states.size();
  undoable_.push_back(std::move(record));
  while (undoable_states_ > kMaxStates && undoable_.size() > 1) {
    undoable_states_ -= undoable_.front().states.size();
    undoable_.pop_front();
  }
}

void UndoList::Clear() {
  undoable_.clear();
  redoable_.clear();
  undoable_states_ = 0;
  if (!open_) return;
  open_->record.states.clear();
  open_->subjects.clear();
}

std::optional<std::string> UndoList::UndoCaption() const {
  if (undoable_.empty()) return std::nullopt;
  return undoable_.back().caption;
}

std::optional<std::string> UndoList::RedoCaption() const {
  if (redoable_.empty()) return std::nullopt;
  return redoable_.back().caption;
}

UndoStates UndoList::MoveToRedoable() {
  undoable_states_ -= undoable_.back().states.size();
  redoable_.push_back(std::move(undoable_.back()));
  undoable_.pop_back();
  return redoable_.back().states;
}

UndoStates UndoList::MoveToUndoable() {
  UndoRecord record = std::move(redoable_.back());
  redoable_.pop_back();
  UndoStates states = record.states;
  Push(std::move(record));
  return states;
}
