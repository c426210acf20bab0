// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "batch/allocation_meter.h"

#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <new>

namespace {

std::size_t g_held = 0;
std::size_t g_peak = 0;

}  // namespace

void* operator new(std::size_t size)
{
    void* memory = std::malloc(size);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    g_held += ::malloc_usable_size(memory);
    g_peak = std::max(g_peak, g_held);
    return memory;
}

void operator delete(void* memory) noexcept
{
    g_held -= ::malloc_usable_size(memory);
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    operator delete(memory);
}

namespace quorbit {

std::size_t PeakAllocation(const std::function<void()>& work)
{
    const std::size_t before = g_held;
    g_peak = before;
    work();
    return g_peak - before;
}

}  // namespace quorbit
