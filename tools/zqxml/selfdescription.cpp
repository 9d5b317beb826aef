// zqxml completion and zqxml manual: both are made from the description that the command line is
// parsed by.

#include <algorithm>
#include <cctype>
#include <memory>
#include <string>
#include <vector>

#include "commands.h"
#include "output.h"

namespace {

struct Options {
  std::string shell;
  Output output;
};

const CLI::App& wholeTool(const CLI::App* command) {
  while (command->get_parent() != nullptr) {
    command = command->get_parent();
  }
  return *command;
}

std::vector<const CLI::App*> commandsOf(const CLI::App& tool) {
  return tool.get_subcommands([](const CLI::App*) { return true; });
}

std::vector<std::string> flagsOf(const CLI::App& command) {
  std::vector<std::string> flags;
  for (const CLI::Option* option : command.get_options()) {
    for (const std::string& name : option->get_snames()) {
      flags.push_back("-" + name);
    }
    for (const std::string& name : option->get_lnames()) {
      flags.push_back("--" + name);
    }
  }
  return flags;
}

std::string joined(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) {
    text += (text.empty() ? "" : " ") + word;
  }
  return text;
}

std::string namesOf(const std::vector<const CLI::App*>& commands) {
  std::vector<std::string> names;
  names.reserve(commands.size());
  for (const CLI::App* command : commands) {
    names.push_back(command->get_name());
  }
  return joined(names);
}

std::string bashCompletion(const CLI::App& tool) {
  std::string text =
      "# Completion of zqxml for bash: source it, or put it into\n"
      "# /usr/share/bash-completion/completions/zqxml.\n"
      "_zqxml() {\n"
      "  local word=${COMP_WORDS[COMP_CWORD]} words\n"
      "  case ${COMP_WORDS[1]} in\n";
  for (const CLI::App* command : commandsOf(tool)) {
    text += "    " + command->get_name() + ") words='" + joined(flagsOf(*command)) + "' ;;\n";
  }
  text += "    *) words='" + namesOf(commandsOf(tool)) + " " + joined(flagsOf(tool)) +
          "' ;;\n"
          "  esac\n"
          "  # Without an answer the shell completes names of files.\n"
          "  COMPREPLY=()\n"
          "  if [ \"$COMP_CWORD\" -eq 1 ] || [[ $word == -* ]]; then\n"
          "    COMPREPLY=($(compgen -W \"$words\" -- \"$word\"))\n"
          "  fi\n"
          "}\n"
          "complete -o default -F _zqxml zqxml\n";
  return text;
}

// A text as the fish shell quotes it.
std::string fishQuoted(const std::string& text) {
  std::string quoted = "'";
  for (const char c : text) {
    if (c == '\'' || c == '\\') {
      quoted += '\\';
    }
    quoted += c == '\n' ? ' ' : c;
  }
  return quoted + "'";
}

std::string fishCompletion(const CLI::App& tool) {
  std::string text =
      "# Completion of zqxml for fish: put it into ~/.config/fish/completions/zqxml.fish.\n";
  for (const CLI::App* command : commandsOf(tool)) {
    text += "complete -c zqxml -n __fish_use_subcommand -f -a " + command->get_name() + " -d " +
            fishQuoted(command->get_description()) + "\n";
    for (const CLI::Option* option : command->get_options()) {
      if (option->get_lnames().empty() && option->get_snames().empty()) {
        continue;
      }
      text += "complete -c zqxml -n '__fish_seen_subcommand_from " + command->get_name() + "'";
      for (const std::string& name : option->get_snames()) {
        text += " -s " + name;
      }
      for (const std::string& name : option->get_lnames()) {
        text += " -l " + name;
      }
      text += " -d " + fishQuoted(option->get_description()) + "\n";
    }
  }
  return text;
}

// A text as roff takes it: no line of it is a request, and a hyphen stays one.
std::string roff(const std::string& text) {
  std::string result;
  for (const char c : text) {
    if (c == '\\' || c == '-') {
      result += '\\';
    }
    if ((c == '.' || c == '\'') && (result.empty() || result.back() == '\n')) {
      result += "\\&";
    }
    result += c == '\\' ? 'e' : c;
  }
  return result;
}

std::string upperCase(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
  return text;
}

void appendOptions(std::string& page, const CLI::App& command) {
  for (const CLI::Option* option : command.get_options()) {
    std::string name = option->get_name(false, true);
    name = option->get_positional() ? option->get_name(true) : name;
    const std::string value = option->get_option_text();
    page += ".TP\n\\fB" + roff(name) + "\\fR" + (value.empty() ? "" : " " + roff(value)) + "\n" +
            roff(option->get_description()) + "\n";
  }
}

std::string manualPage(const CLI::App& tool) {
  std::string page = ".TH ZQXML 1\n.SH NAME\nzqxml \\- " + roff(tool.get_description()) +
                     "\n.SH SYNOPSIS\n\\fBzqxml\\fR \\fISUBCOMMAND\\fR [\\fIOPTIONS\\fR] "
                     "[\\fIFILE\\fR...]\n.SH DESCRIPTION\n" +
                     roff(tool.get_footer()) + "\n.SH OPTIONS\n";
  appendOptions(page, tool);
  for (const CLI::App* command : commandsOf(tool)) {
    page += ".SH ZQXML " + roff(upperCase(command->get_name())) + "\n" +
            roff(command->get_description()) + ".\n";
    if (!command->get_footer().empty()) {
      page += ".PP\n" + roff(command->get_footer()) + "\n";
    }
    appendOptions(page, *command);
  }
  return page;
}

}  // namespace

void addCompletion(CLI::App& app, int& exitCode) {
  auto options = std::make_shared<Options>();
  CLI::App* command =
      app.add_subcommand("completion", "Print a script that completes the tool's command lines");
  command->add_option("SHELL", options->shell, "bash or fish")
      ->required()
      ->check(CLI::IsMember({"bash", "fish"}))
      ->option_text(" ");
  options->output.addOption(*command);
  command->callback([options, command, &exitCode] {
    const CLI::App& tool = wholeTool(command);
    exitCode = options->output.write(options->shell == "bash" ? bashCompletion(tool)
                                                              : fishCompletion(tool));
  });
}

void addManual(CLI::App& app, int& exitCode) {
  auto options = std::make_shared<Options>();
  CLI::App* command = app.add_subcommand("manual", "Print the tool's manual page, for man");
  options->output.addOption(*command);
  command->callback([options, command, &exitCode] {
    exitCode = options->output.write(manualPage(wholeTool(command)));
  });
}
