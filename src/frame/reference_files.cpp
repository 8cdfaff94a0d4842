#include "frame/reference_files.h"

#include <algorithm>

#include <fmt/format.h>

#include "base/text.h"
#include "frame/reference.h"
#include "script/command_table.h"

namespace zaview {

namespace {

std::string Escaped(std::string_view text, std::string_view special) {
  std::string escaped;
  for (const char c : text) {
    if (special.find(c) != std::string_view::npos) escaped += '\\';
    escaped += c;
  }
  return escaped;
}

std::string Capitalized(std::string_view text) {
  std::string capital(text);
  if (!capital.empty()) capital.replace(0, 1, Capitals(text.substr(0, 1)));
  return capital;
}

// ---- Markdown

std::string Prose(std::string_view text) {
  return Escaped(text, "\\*_<|");
}

void AddRow(std::string& page, const ReferenceRow& row) {
  page += fmt::format("\n- `{}`  \n", row.term);
  for (const std::string& text : row.text) page += fmt::format("  {}\n", Prose(text));
}

void AddPart(std::string& page, const ReferencePart& part) {
  if (!part.title.empty()) page += fmt::format("\n### {}\n", part.title);
  for (const std::string& text : part.ahead) page += fmt::format("\n{}\n", Prose(text));
  for (const ReferenceRow& row : part.rows) AddRow(page, row);
}

// ---- The manual page: a line that begins with a dot or a quote would be a request

std::string Roff(std::string_view text) {
  std::string line = Escaped(text, "\\-");
  for (std::size_t at = line.find('"'); at != std::string::npos; at = line.find('"', at + 4))
    line.replace(at, 1, "\\(dq");
  for (std::size_t at = line.find("\\\\"); at != std::string::npos; at = line.find("\\\\", at + 2))
    line.replace(at, 2, "\\e");
  if (!line.empty() && (line[0] == '.' || line[0] == '\'')) line.insert(0, "\\&");
  return line;
}

void AddManualPart(std::string& page, const ReferencePart& part) {
  if (!part.title.empty()) page += fmt::format(".SS {}\n", Roff(part.title));
  for (const std::string& text : part.ahead) page += fmt::format(".PP\n{}\n", Roff(text));
  for (const ReferenceRow& row : part.rows) {
    page += fmt::format(".TP\n.B {}\n", Roff(row.term));
    for (const std::string& text : row.text) page += fmt::format("{}\n", Roff(text));
  }
}

constexpr std::string_view kManualHead = R"(.\" Made from the tables of the program; do not edit.
.TH ZAVIEW 1
.ad l
.SH NAME
zaview \- tables, statistics and plots of ship motion simulations
.SH SYNOPSIS
.B zaview
.RI [ option " ..] [" run.out " ..]"
.SH DESCRIPTION
Reads runs of ZAVO and gives what they were made for: time histories, load distributions, waves, statistics with
confidence intervals of one run and of ensembles, histograms, upcrossings and exceedances, as tables and as pictures.
Without a script the main menu asks what is wanted; with one the program does its lines and ends.
)";
constexpr std::string_view kManualTail = R"(.SH EXAMPLES
.nf
zaview run.out \-command 'WRITE_STAT SIG_AMP MOT 3 "Heave" ""'
zaview run.out \-command 'PLOT_HISTORY MOT 3 heave.png'
zaview sea_*.out \-command 'ENSEMBLE_CI MOT 3 heave.txt'
.fi
)";

}  // namespace

std::string ReferencePage() {
  std::string page =
      "# Reference\n\nMade from the tables of the program; `zaview -help TOPIC` prints the same, `man zaview` too. "
      "Topics:\n";
  const std::vector<ReferenceTopic> topics = Reference();
  for (const ReferenceTopic& topic : topics)
    page += fmt::format("\n- [{0}](#{0}): {1}", topic.name, Prose(topic.meaning));
  page += '\n';
  for (const ReferenceTopic& topic : topics) {
    page += fmt::format("\n## {}\n", topic.name);
    for (const ReferencePart& part : topic.parts) AddPart(page, part);
  }
  return page;
}

std::string ManualPage() {
  std::string page(kManualHead);
  for (const ReferenceTopic& topic : Reference()) {
    page += fmt::format(".SH {}\n{}.\n", Capitals(topic.name), Roff(Capitalized(topic.meaning)));
    for (const ReferencePart& part : topic.parts) AddManualPart(page, part);
  }
  return page.append(kManualTail);
}

std::string ShellCompletion() {
  std::string options, topics;
  for (const ReferenceTopic& topic : Reference()) {
    topics += topic.name + ' ';
    if (topic.name != "options") continue;
    for (const ReferenceRow& row : topic.parts[0].rows) {  // "-s, -script file"
      std::string_view words = row.term;
      while (StartsWith(words, "-")) {
        const std::size_t end = std::min(words.find_first_of(", ."), words.size());
        options.append(words.substr(0, end)).append(" ");
        words.remove_prefix(end);
        words = StartsWith(words, ", ") ? words.substr(2) : std::string_view();
      }
    }
  }
  for (const CommandFamily& family : AllCommands())
    for (const Command& command : family)
      if (!command.meaning.empty()) topics.append(command.names[0]).append(" ");
  return fmt::format(R"(# Completion of zaview for bash. Made from the tables of the program; do not edit.
_zaview() {{
  local word=${{COMP_WORDS[COMP_CWORD]}} before=${{COMP_WORDS[COMP_CWORD-1]}}
  case $before in
    -help|-h|--help) COMPREPLY=($(compgen -W "{}" -- "$word")); return ;;
    -command|-init_command|-ship|-v|-set|-root) return ;;
  esac
  case $word in
    -*) COMPREPLY=($(compgen -W "{}" -- "$word")) ;;
    *) compopt -o filenames 2>/dev/null; mapfile -t COMPREPLY < <(compgen -f -- "$word") ;;
  esac
}}
complete -F _zaview zaview
)",
                     TrimEnd(topics), TrimEnd(options));
}

std::span<const ReferenceFile> ReferenceFiles() {
  static constexpr ReferenceFile kFiles[] = {
      {"docs/reference.md", ReferencePage}, {"docs/zaview.1", ManualPage}, {"scripts/zaview.bash", ShellCompletion}};
  return kFiles;
}

}  // namespace zaview
