// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_LIBRARYSINGLETON_P_H
#define NVR_LIBRARYSINGLETON_P_H

/*
 * The process-wide library objects: created and loaded on first use, without
 * a parent, so that nothing but destroyLibrary() frees them.
 */

template<typename Library>
Library *libraryInstance(Library *&slot)
{
    if (!slot)
        slot = new Library();
    return slot;
}

template<typename Library>
void destroyLibrary(Library *&slot)
{
    delete slot;
    slot = nullptr;
}

#endif
