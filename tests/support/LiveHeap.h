#pragma once

/// The heap of the process, counted exactly. A program that has LiveHeap.cpp among its sources
/// allocates through it, the libraries that it uses included.
///
/// The C library's own figures (mallinfo) are of no use for this: they count what has been given
/// back and is kept for the next allocation of its size as in use.
namespace LiveHeap {

/// What has been taken and not given back.
struct Count
{
    long long blocks = 0;
    long long bytes = 0; ///< as asked for
};

/// Nothing under the address sanitizer.
Count now();

inline Count operator-(const Count& left, const Count& right)
{
    return {left.blocks - right.blocks, left.bytes - right.bytes};
}

} // namespace LiveHeap
