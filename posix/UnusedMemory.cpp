// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "posix/UnusedMemory.h"

#include <cstddef>
#include <cstdint>

#include <link.h>
#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>

namespace quorvane {

namespace {

/// Parts of a library that nobody may write are as they are in its file, also the kernel's copy of them.
int dropUnwritable(dl_phdr_info *library, std::size_t, void *pageSize)
{
    const auto page = *static_cast<const std::uintptr_t *>(pageSize);
    for (int i = 0; i < library->dlpi_phnum; ++i) {
        const auto &part = library->dlpi_phdr[i];
        if (part.p_type != PT_LOAD || (part.p_flags & PF_W) != 0)
            continue;
        const std::uintptr_t start = (library->dlpi_addr + part.p_vaddr) & ~(page - 1);
        const std::uintptr_t end = library->dlpi_addr + part.p_vaddr + part.p_memsz;
        ::madvise(reinterpret_cast<void *>(start), end - start, MADV_DONTNEED);
    }
    return 0;
}

} // namespace

void returnUnusedMemory()
{
    ::malloc_trim(0);
    auto pageSize = static_cast<std::uintptr_t>(::sysconf(_SC_PAGESIZE));
    ::dl_iterate_phdr(dropUnwritable, &pageSize);
}

} // namespace quorvane
