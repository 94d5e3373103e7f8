#pragma once

/// Has the program call fake wherever its sources call the system's function: the address that a linker would take from
/// the import library.
/// @param size  bytes of the function's arguments
#define REPLACE_IMPORT(function, size, fake)                                                                           \
    extern "C" decltype(&function) const replacing##function asm("__imp__" #function "@" #size);                       \
    decltype(&function) const replacing##function = fake
