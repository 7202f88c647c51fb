#include "commandline.h"
#include "help.h"

#include <ostream>

namespace qxtab {

namespace {

std::string escaped(std::string const& text, char const* what) {
    std::string made;
    for (char const c : text) {
        made += std::string(what).find(c) == std::string::npos ? "" : "\\";
        made += c;
    }
    return made;
}

std::string forManual(std::string const& text) {
    std::string made;
    bool lineStart = true;
    for (char const c : text) {
        made += lineStart && (c == '.' || c == '\'') ? "\\&" : "";
        made += c == '\\' ? "\\e" : c == '-' ? "\\-" : c == '\'' ? "\\(aq" : std::string(1, c);
        lineStart = c == '\n';
    }
    return made;
}

// Lines that begin with blanks are set as they are, the others as paragraphs.
void writeLines(std::ostream& os, std::string const& text) {
    bool asIs = false;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t const end = std::min(text.find('\n', at), text.size());
        std::string const line = text.substr(at, end - at);
        at = end + 1;
        bool const example = line.starts_with("  ");
        if (example != asIs && !line.empty()) {
            os << (example ? ".nf\n" : ".fi\n");
            asIs = example;
        }
        os << (line.empty() ? ".PP" : forManual(line)) << "\n";
    }
    os << (asIs ? ".fi\n" : "");
}

void writeOptions(std::ostream& os, std::vector<Option> const& options) {
    for (Option const& each : options) {
        os << ".TP\n.B " << (each.letter == 0 ? "" : std::string("\\-") + each.letter + ", ") << "\\-\\-"
           << forManual(each.name)
           << (each.value == nullptr ? "" : std::string(" \\fI") + each.value + "\\fR") << "\n"
           << forManual(each.help) << ".\n";
    }
}

std::string optionWords(std::vector<Option> const& options) {
    std::string words;
    for (Option const& each : options) {
        words += std::string(words.empty() ? "" : " ") + "--" + each.name;
    }
    return words;
}

std::string verbWords() {
    std::string words;
    for (Verb const* verb : verbs()) {
        words += std::string(words.empty() ? "" : " ") + verb->name;
    }
    return words;
}

void writeChoices(std::ostream& os, std::vector<Option> const& options, char const* before,
                  char const* after) {
    for (Option const& each : options) {
        if (each.choices != nullptr) {
            os << "        --" << each.name << ") " << before << each.choices << after << "\n";
        }
    }
}

void writeAllChoices(std::ostream& os, char const* before, char const* after) {
    writeChoices(os, sharedOptions(), before, after);
    for (Verb const* verb : verbs()) {
        writeChoices(os, verb->syntax.options, before, after);
    }
}

} // namespace

void writeManualPage(std::ostream& os) {
    os << ".TH QXTAB 1 \"\" \"QX\" \"User Commands\"\n.SH NAME\nqxtab \\- work on tables in CSV, TSV "
          "and JSON files\n"
          ".SH SYNOPSIS\n.B qxtab\n.I VERB\n.RI [ OPTIONS ]\n.RB [ then\n.I VERB\n.RI [ OPTIONS "
          "]]...\n.RI [ FILE ]\n"
          ".br\n.B qxtab help\n.RI [ TOPIC ]\n.SH DESCRIPTION\n"
          "Reads a table, does one verb after another to it and writes what it has become, without "
          "writing and\n"
          "reading it in between. What is read comes out as it was, unless it is computed. Messages go "
          "to\n"
          "standard error; nothing in the data can steer a terminal. Tables are held in memory.\n.SH "
          "OPTIONS\n";
    writeOptions(os, sharedOptions());
    os << ".SH VERBS\n";
    for (Verb const* verb : verbs()) {
        os << ".SS " << verb->name << "\n" << forManual(verb->summary) << ".\n";
        if (*verb->help != '\0') {
            os << ".PP\n" << forManual(verb->help) << "\n";
        }
        writeOptions(os, verb->syntax.options);
        os << ".PP\n.nf\n    " << forManual(verb->example) << "\n.fi\n";
    }
    for (std::size_t k = 0; k < topicCount; ++k) {
        os << ".SH " << topics[k].title << "\n";
        writeLines(os, topics[k].text +
                           (topics[k].name == std::string("expressions") ? functionLines() : ""));
    }
}

void writeBashCompletion(std::ostream& os) {
    os << "# Completion of qxtab's command lines in bash; made by 'qxtab help bash'.\n"
          "_qxtab() {\n"
          "    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]} verb= k\n"
          "    for ((k = 1; k < COMP_CWORD; ++k)); do\n"
          "        if ((k == 1)) || [[ ${COMP_WORDS[k-1]} == then ]]; then verb=${COMP_WORDS[k]}; fi\n"
          "    done\n"
          "    if ((COMP_CWORD == 1)) || [[ $before == then ]]; then\n"
          "        COMPREPLY=($(compgen -W '"
       << verbWords()
       << " help --help --version' -- \"$word\"))\n        return\n    fi\n    case $before in\n";
    writeAllChoices(os, "COMPREPLY=($(compgen -W '", "' -- \"$word\")); return ;;");
    os << "    esac\n    if [[ $word != -* ]]; then\n        COMPREPLY=($(compgen -f -- \"$word\"))\n   "
          "     return\n    fi\n"
          "    local options='"
       << optionWords(sharedOptions()) << " --help'\n    case $verb in\n";
    for (Verb const* verb : verbs()) {
        if (!verb->syntax.options.empty()) {
            os << "        " << verb->name << ") options+=' " << optionWords(verb->syntax.options)
               << "' ;;\n";
        }
    }
    os << "    esac\n    COMPREPLY=($(compgen -W \"$options\" -- \"$word\"))\n}\ncomplete -o filenames "
          "-F _qxtab qxtab\n";
}

void writeZshCompletion(std::ostream& os) {
    os << "#compdef qxtab\n# Completion of qxtab's command lines in zsh; made by 'qxtab help zsh'.\n"
          "_qxtab() {\n    local -a verbs options\n    local verb= k\n    verbs=(\n";
    for (Verb const* verb : verbs()) {
        os << "        '" << verb->name << ":" << escaped(verb->summary, ":") << "'\n";
    }
    os << "    )\n    for ((k = 2; k < CURRENT; ++k)); do\n"
          "        if ((k == 2)) || [[ $words[k-1] == then ]]; then verb=$words[k]; fi\n    done\n"
          "    if ((CURRENT == 2)) || [[ $words[CURRENT-1] == then ]]; then\n"
          "        _describe verb verbs\n        return\n    fi\n    case $words[CURRENT-1] in\n";
    writeAllChoices(os, "compadd ", "; return ;;");
    os << "    esac\n    if [[ $words[CURRENT] != -* ]]; then\n        _files\n        return\n    fi\n"
          "    options=("
       << optionWords(sharedOptions()) << " --help)\n    case $verb in\n";
    for (Verb const* verb : verbs()) {
        if (!verb->syntax.options.empty()) {
            os << "        " << verb->name << ") options+=(" << optionWords(verb->syntax.options)
               << ") ;;\n";
        }
    }
    os << "    esac\n    compadd -- $options\n}\n_qxtab \"$@\"\n";
}

} // namespace qxtab
