#pragma once

/// One element of a VXDisjointSet, a plain value.
///
/// The class declares no member beyond its constructors: assignment and destruction are those of
/// three ints.
struct VXDisjointElement {
    int rank = 0; ///< bound on the height of the tree below the element
    int size = 0; ///< elements in the segment; meaningful at a root
    int parent = 0; ///< index of the parent element; the element's own index at a root

    /// All three are 0.
    constexpr VXDisjointElement() = default;

    /// Sets all three.
    constexpr VXDisjointElement(int elementRank, int segmentSize, int parentIndex)
        : rank(elementRank)
        , size(segmentSize)
        , parent(parentIndex)
    {
    }
};
