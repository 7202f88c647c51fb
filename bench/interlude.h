#pragma once

namespace Bench {

/// Does something else, as programs do between two operations: the next of a round of operations of the
/// library and of plain C++, each on 50,000 rows. Whatever repeats one operation alone finds its data in
/// the processor's caches and its memory where it has just been given back.
void interlude();

} // namespace Bench
