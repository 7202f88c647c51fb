#pragma once

#include "verb.h"

namespace qxtab {

// The verbs, family by family.
extern Verb const showVerb, headVerb, tailVerb, sampleVerb, filterVerb;
extern Verb const sortVerb, topVerb;
extern Verb const uniqVerb, groupVerb, joinVerb;
extern Verb const selectVerb, dropVerb, renameVerb, reorderVerb;
extern Verb const computeVerb, fillVerb;
extern Verb const longVerb, wideVerb, transposeVerb;
extern Verb const appendVerb, mergeVerb, overlayVerb, compareVerb;
extern Verb const sumVerb, meanVerb, minVerb, maxVerb, describeVerb;
extern Verb const addVerb, subtractVerb;
extern Verb const getVerb, setVerb, attributesVerb;

} // namespace qxtab
