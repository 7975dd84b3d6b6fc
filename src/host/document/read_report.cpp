#include "host/document/read_report.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace {

constexpr std::size_t kMaxProblems = 10;
// How the name of a kind begins that is known by its class id alone.
constexpr std::string_view kUnnamed = "class ";

bool EndsInConsonantAndY(std::string_view noun) {
  constexpr std::string_view kVowels = "aeiou";
  return noun.size() >= 2 && noun.back() == 'y' &&
         kVowels.find(noun[noun.size() - 2]) == std::string_view::npos;
}

bool EndsInSibilant(std::string_view noun) {
  constexpr std::array<std::string_view, 5> kEndings = {"s", "x", "z", "ch", "sh"};
  return std::any_of(kEndings.begin(), kEndings.end(),
                     [noun](std::string_view ending) { return noun.ends_with(ending); });
}

// "12 breps"; a kind that has no name but its class id is "3 records of class 4ed7d4e2-...".
std::string Counted(const ONX_UnreadKind& kind) {
  const bool isNamed = !std::string_view(kind.m_name).starts_with(kUnnamed);
  const std::string noun = isNamed ? kind.m_name : "record of " + kind.m_name;
  return std::to_string(kind.m_count) + " " + (kind.m_count == 1 ? noun : Plural(noun));
}

std::string UnreadLine(const std::vector<ONX_UnreadKind>& kinds) {
  std::string line;
  for (const ONX_UnreadKind& kind : kinds) {
    line += line.empty() ? "Not read: " : ", ";
    line += Counted(kind);
  }
  return line.empty() ? line : line + ".\n";
}

}  // namespace

std::string Plural(std::string_view noun) {
  const std::size_t of = noun.find(" of ");
  if (of != std::string_view::npos)
    return Plural(noun.substr(0, of)) + std::string(noun.substr(of));
  if (EndsInConsonantAndY(noun)) return std::string(noun.substr(0, noun.size() - 1)) + "ies";
  return std::string(noun) + (EndsInSibilant(noun) ? "es" : "s");
}

std::string ReadReport(const ONX_Model& model) {
  std::string report = UnreadLine(model.m_unread);
  const std::vector<std::string>& problems = model.m_problems;
  for (std::size_t i = 0; i < std::min(problems.size(), kMaxProblems); ++i) {
    report += problems[i] + "\n";
  }
  if (problems.size() > kMaxProblems) {
    report += "... and " + std::to_string(problems.size() - kMaxProblems) + " more\n";
  }
  return report;
}
