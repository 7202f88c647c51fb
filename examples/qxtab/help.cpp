#include "help.h"

#include "commandline.h"
#include "failure.h"

#include <algorithm>
#include <ostream>

namespace qxtab {

namespace {

std::size_t const gap = 24;

std::string padded(std::string text, std::size_t width) {
    text.resize(std::max(width, text.size() + 2), ' ');
    return text;
}

void writeOptions(std::ostream& os, std::vector<Option> const& options) {
    for (Option const& each : options) {
        std::string const letter = each.letter == 0 ? "" : std::string("-") + each.letter + ", ";
        std::string const value = each.value == nullptr ? "" : std::string(" ") + each.value;
        os << padded("  " + letter + "--" + each.name + value, gap) << each.help << "\n";
    }
}

bool isList(Option const& option) {
    return option.value != nullptr && std::string(option.value) == "LIST";
}

std::string usage(Verb const& verb) {
    Syntax const& syntax = verb.syntax;
    std::string words;
    for (char const* word : syntax.words) {
        words += std::string(" ") + word;
    }
    std::string files = syntax.fewestOthers == 0 ? " [FILE]" : " FILE OTHER";
    files += syntax.mostOthers == Syntax::anyNumber ? "..." : "";
    return std::string("qxtab ") + verb.name + " [OPTIONS]" +
           (syntax.wordsLast ? files + words : words + files);
}

void writeVerb(std::ostream& os, Verb const& verb) {
    os << "Usage: " << usage(verb) << "\n\n" << verb.summary << ".\n";
    if (*verb.help != '\0') {
        os << "\n" << verb.help << "\n";
    }
    if (!verb.syntax.options.empty()) {
        os << "\nOptions:\n";
        writeOptions(os, verb.syntax.options);
    }
    os << "\nOptions of every verb:\n";
    writeOptions(os, sharedOptions());
    if (std::any_of(verb.syntax.options.begin(), verb.syntax.options.end(), isList)) {
        os << "\nThe entries of a LIST stand in \"\" when they hold a comma, = or blanks at an end: "
              "'\"km, mean\"'.\n";
    }
    os << "\nExample:\n  " << verb.example << "\n";
}

} // namespace

void writeHelp(std::ostream& os) {
    os << "Usage: qxtab VERB [OPTIONS] [then VERB [OPTIONS]]... [FILE]\n\n"
          "Works on tables in CSV, TSV and JSON files. What is read comes out as it was, unless it is "
          "computed.\n\n"
          "Verbs:\n";
    for (Verb const* verb : verbs()) {
        os << padded(std::string("  ") + verb->name, 14) << verb->summary << "\n";
    }
    os << "\n'qxtab VERB --help' tells about a verb, 'qxtab help TOPIC' about files, types, "
          "expressions, status and\n"
          "environment.\n\nOptions:\n";
    writeOptions(os, sharedOptions());
    os << padded("  --help", gap) << "Print this and exit\n"
       << padded("  --version", gap) << "Print the version and exit\n"
       << "\nExample:\n  qxtab filter 'price > 100' then sort --by price then head -n 3 prices.csv\n";
}

void writeHelp(std::ostream& os, std::string const& topic) {
    struct Generated {
        char const* name;
        void (*write)(std::ostream& os);
    };
    Generated const generated[] = {
        {"man", writeManualPage}, {"bash", writeBashCompletion}, {"zsh", writeZshCompletion}};
    for (Generated const& each : generated) {
        if (topic == each.name) {
            each.write(os);
            return;
        }
    }
    for (std::size_t k = 0; k < topicCount; ++k) {
        if (topic == topics[k].name) {
            os << topics[k].text << (topic == "expressions" ? functionLines() : "");
            return;
        }
    }
    writeVerb(os, verbNamed(topic));
}

} // namespace qxtab
