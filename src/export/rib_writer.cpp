#include "export/rib_writer.h"

#include <algorithm>
#include <cstdarg>
#include <cstring>

#include "host/system/text.h"

namespace orv {
namespace {

// Where formatted text goes; what lies beyond the limit is dropped.
struct TextEnd {
  char* at;
  char* limit;

  void Append(std::string_view text) {
    const std::size_t count = std::min(text.size(), static_cast<std::size_t>(limit - at));
    at = std::copy_n(text.data(), count, at);
  }
  void AppendReal(double value) {
    char text[host::kMaxGLength];
    Append({text, host::FormatG(value, text)});
  }
  void AppendInt(int value) {
    char text[host::kMaxIntLength];
    Append({text, host::FormatInt(value, text)});
  }
};

void FormatText(TextEnd& out, const char* format, std::va_list arguments) {
  while (const char* placeholder = std::strchr(format, '%')) {
    out.Append({format, placeholder});
    switch (placeholder[1]) {
      case 'd':
        out.AppendInt(va_arg(arguments, int));
        break;
      case 'g':
        out.AppendReal(va_arg(arguments, double));
        break;
      case 's':
        out.Append(va_arg(arguments, const char*));
        break;
      case '%':
        out.Append("%");
        break;
      default:
        out.Append(placeholder);
        return;
    }
    format = placeholder + 2;
  }
  out.Append(format);
}

// Turns each "%%" into "%"; the end of what is left.
char* WithoutDoublePercents(char* begin, char* end) {
  char* out = begin;
  for (const char* in = begin; in != end; ++in) {
    if (in[0] == '%' && in + 1 != end && in[1] == '%') ++in;
    *out++ = *in;
  }
  return out;
}

}  // namespace

RibWriter::RibWriter(std::string_view path)
    : FileName(path),
      file_(path),
      block_(std::make_unique_for_overwrite<char[]>(kBlockSize)),
      line_(block_.get()),
      end_(line_) {}

bool RibWriter::Close() {
  end_ = line_;
  file_.Write({block_.get(), line_});
  line_ = end_ = block_.get();
  return file_.Close();
}

void RibWriter::StartLine(int indent) {
  end_ = std::fill_n(end_, std::clamp(indent, 0, kDeepestIndent), ' ');
}

void RibWriter::FinishLine() {
  if (hasPercent_) end_ = WithoutDoublePercents(line_, end_);
  hasPercent_ = false;
  line_ = end_;
  MakeRoom();
}

// Writes the complete lines to the file when the block is nearly full.
void RibWriter::MakeRoom() {
  if (static_cast<std::size_t>(line_ - block_.get()) <= kBlockSize - kLineRoom) return;
  file_.Write({block_.get(), line_});
  written_ += static_cast<std::uint64_t>(line_ - block_.get());
  end_ = std::copy(line_, end_, block_.get());
  line_ = block_.get();
}

// Ends the line before the text from end_ to `textEnd` and begins the next one with it.
void RibWriter::BreakLine(const char* textEnd) {
  const char* text = end_;
  const std::ptrdiff_t length = textEnd - text;
  if (hasPercent_) end_ = WithoutDoublePercents(line_, end_);
  hasPercent_ = false;
  line_ = end_ + 1;
  const int indent = std::clamp(Indent + 2, 0, kDeepestIndent);
  std::memmove(line_ + indent, text, static_cast<std::size_t>(length));
  *end_++ = '\n';
  StartLine(indent);
  end_ += length;
  if (end_ - line_ >= kLineLimit) line_ = end_;  // too long for any line
  MakeRoom();
}

void RibWriter::EndText(char* textEnd) {
  const bool hasPercent = std::find(end_, textEnd, '%') != textEnd;
  EndGroup(textEnd);
  if (end_ == line_) return;
  hasPercent_ = hasPercent_ || hasPercent;
  if (end_[-1] == '\n') FinishLine();
}

void RibPrintf(RibWriter& writer, const char* format, ...) {
  if (format == nullptr || *format == '\0') return;
  const bool onNewLine = writer.LineLength() == 0;
  char* begin = writer.BeginText();
  TextEnd text{begin, begin + RibWriter::kTextRoom};
  std::va_list arguments;
  va_start(arguments, format);
  FormatText(text, format, arguments);
  va_end(arguments);
  const std::string_view cut = host::FirstBytes({begin, text.at}, RibWriter::kLineLimit);
  if (onNewLine && cut == "\n") {
    *writer.line_ = '\n';
    writer.end_ = writer.line_ + 1;
    writer.FinishLine();
  } else {
    writer.EndText(begin + cut.size());
  }
}

}  // namespace orv
