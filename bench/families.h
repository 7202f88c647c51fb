#pragma once

namespace Bench {

void addCells();
void addBuild();
void addRead();
void addSort();
void addFilter();
void addDistinct();
void addJoin();
void addWide();
void addCompare();
void addArithmetic();
void addDisplay();
void addNested();
void addPaths();
void addAttributes();

/// Adds the workloads of all families.
inline void addAll() {
    addCells();
    addBuild();
    addRead();
    addSort();
    addFilter();
    addDistinct();
    addJoin();
    addWide();
    addCompare();
    addArithmetic();
    addDisplay();
    addNested();
    addPaths();
    addAttributes();
}

} // namespace Bench
