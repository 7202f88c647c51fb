#include "verbs.h"

#include "failure.h"

namespace qxtab {

std::vector<Verb const*> const& verbs() {
    static std::vector<Verb const*> const all = {
        &showVerb, &describeVerb,  &headVerb,       &tailVerb,    &sampleVerb,  &filterVerb,
        &sortVerb, &topVerb,       &uniqVerb,       &groupVerb,   &joinVerb,    &selectVerb,
        &dropVerb, &renameVerb,    &reorderVerb,    &computeVerb, &fillVerb,    &longVerb,
        &wideVerb, &transposeVerb, &appendVerb,     &mergeVerb,   &overlayVerb, &compareVerb,
        &sumVerb,  &meanVerb,      &minVerb,        &maxVerb,     &addVerb,     &subtractVerb,
        &getVerb,  &setVerb,       &attributesVerb,
    };
    return all;
}

Verb const& verbNamed(std::string const& name) {
    std::vector<std::string> names;
    for (Verb const* each : verbs()) {
        if (name == each->name) {
            return *each;
        }
        names.emplace_back(each->name);
    }
    throw Misuse("'" + name + "' is not a verb" + suggestion(name, names));
}

} // namespace qxtab
