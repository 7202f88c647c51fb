#include "arguments.h"

#include "failure.h"
#include "list.h"

#include <algorithm>
#include <charconv>

namespace qxtab {

namespace {

Option const* findOption(std::vector<Option const*> const& options, std::string const& name) {
    auto const found = std::find_if(options.begin(), options.end(), [&](Option const* each) {
        return name == std::string("--") + each->name ||
               (each->letter != 0 && name == std::string("-") + each->letter);
    });
    if (found == options.end()) {
        std::vector<std::string> names;
        names.reserve(options.size());
        for (Option const* each : options) {
            names.push_back(std::string("--") + each->name);
        }
        throw Misuse("'" + name + "' is not an option here" + suggestion(name, names));
    }
    return *found;
}

bool isOption(std::string const& word) {
    return word.size() > 1 && word.front() == '-';
}

std::string counted(std::size_t count, char const* what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

} // namespace

Arguments::Arguments(Syntax const& syntax, std::vector<Option> const& shared,
                     std::vector<std::string> const& words, bool first, Arguments* global) {
    std::vector<Option const*> options;
    for (Option const& each : syntax.options) {
        options.push_back(&each);
    }
    for (Option const& each : shared) {
        options.push_back(&each);
    }
    bool all = false; // behind "--" everything is a file or a word
    for (std::size_t k = 0; k < words.size(); ++k) {
        if (!all && words[k] == "--") {
            all = true;
        } else if (!all && isOption(words[k])) {
            takeOption(options, words, k);
        } else {
            files_.push_back(words[k]);
        }
    }
    for (Option const& each : shared) {
        if (auto taken = given_.extract(each.name); !taken.empty()) {
            global->given_[each.name] = taken.mapped();
        }
    }
    for (Option const& each : syntax.options) {
        if (each.required && !has(each.name)) {
            throw Misuse(std::string("--") + each.name + " is missing");
        }
    }
    shareOut(syntax, first);
}

void Arguments::takeOption(std::vector<Option const*> const& options,
                           std::vector<std::string> const& words, std::size_t& k) {
    std::string const& word = words[k];
    bool const isLong = word.starts_with("--");
    std::size_t const nameEnd = isLong ? std::min(word.find('='), word.size()) : 2;
    Option const& option = *findOption(options, word.substr(0, nameEnd));
    std::vector<std::string>& values = given_[option.name];
    bool const attached = nameEnd < word.size();
    if (option.value == nullptr) {
        if (attached) {
            throw Misuse("'" + word + "': --" + option.name + " takes no value");
        }
        values = {""};
        return;
    }
    if (!attached && k + 1 == words.size()) {
        throw Misuse(std::string("--") + option.name + " needs a value: " + option.value);
    }
    if (!values.empty() && !option.several) {
        throw Misuse(std::string("--") + option.name + " is given twice");
    }
    values.push_back(attached ? word.substr(nameEnd + (isLong ? 1 : 0)) : words[++k]);
}

void Arguments::shareOut(Syntax const& syntax, bool first) {
    bool const none = syntax.unless != nullptr && has(syntax.unless);
    std::size_t const wanted = none ? 0 : syntax.words.size();
    if (files_.size() < wanted) {
        throw Misuse(std::string(syntax.words[files_.size()]) + " is missing");
    }
    auto const begin =
        syntax.wordsLast ? files_.end() - static_cast<std::ptrdiff_t>(wanted) : files_.begin();
    auto const end = begin + static_cast<std::ptrdiff_t>(wanted);
    words_.assign(begin, end);
    files_.erase(begin, end);
    if (first && files_.empty() && syntax.fewestOthers == 0) {
        files_.emplace_back("-");
        lacksFile_ = true;
    }
    std::size_t const own = first ? 1 : 0;
    if (files_.size() < own + syntax.fewestOthers) {
        throw Misuse(counted(own + syntax.fewestOthers, "file") + " needed here, and " +
                     std::to_string(files_.size()) + " given");
    }
    if (!first && syntax.mostOthers != Syntax::anyNumber && files_.size() == syntax.mostOthers + 1) {
        trailingFile_ = files_.back();
        files_.pop_back();
    }
    if (syntax.mostOthers != Syntax::anyNumber && files_.size() > own + syntax.mostOthers) {
        throw Misuse("'" + files_[own + syntax.mostOthers] + "' is one argument too many");
    }
    if (std::count(files_.begin(), files_.end(), "") != 0) {
        throw Misuse("the name of a file is empty");
    }
}

std::string Arguments::text(std::string const& option, std::string const& fallback) const {
    auto const found = given_.find(option);
    return found == given_.end() ? fallback : found->second.back();
}

std::vector<std::string> Arguments::texts(std::string const& option) const {
    auto const found = given_.find(option);
    return found == given_.end() ? std::vector<std::string>() : found->second;
}

std::optional<std::size_t> Arguments::count(std::string const& option) const {
    if (!has(option)) {
        return std::nullopt;
    }
    std::string const digits = text(option);
    std::size_t number = 0;
    char const* const end = digits.data() + digits.size();
    auto const read = std::from_chars(digits.data(), end, number);
    if (digits.empty() || read.ec != std::errc() || read.ptr != end) {
        throw Misuse("--" + option + ": '" + digits + "' is not a number of rows");
    }
    return number;
}

std::vector<std::string> Arguments::names(std::string const& option) const {
    return has(option) ? readNames(text(option)) : std::vector<std::string>();
}

} // namespace qxtab
