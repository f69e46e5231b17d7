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

/// Whether the loader wrote addresses into the code itself, which no file holds.
bool hasTextRelocations(const dl_phdr_info &library)
{
    for (int i = 0; i < library.dlpi_phnum; ++i) {
        if (library.dlpi_phdr[i].p_type != PT_DYNAMIC)
            continue;
        const auto *entry =
            reinterpret_cast<const ElfW(Dyn) *>(library.dlpi_addr + library.dlpi_phdr[i].p_vaddr);
        for (; entry->d_tag != DT_NULL; ++entry) {
            if (entry->d_tag == DT_TEXTREL ||
                (entry->d_tag == DT_FLAGS && (entry->d_un.d_val & DF_TEXTREL) != 0))
                return true;
        }
    }
    return false;
}

/// Parts of a library that nobody may write are as they are in its file, also the kernel's copy of them.
int dropUnwritable(dl_phdr_info *library, std::size_t, void *pageSize)
{
    if (hasTextRelocations(*library))
        return 0;
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
