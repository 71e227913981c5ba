#pragma once

#include <UI_MacroVariant.h>

struct IUnknown;

/// What few values need: elements or stored arguments, and a counted object.
struct UI_MacroVariant::Parts {
    UI_MacroArray array;
    IUnknown* counted = nullptr;
    Parts* next = nullptr; // while waiting for destruction

    static void* operator new(std::size_t size);
    static void operator delete(void* cell, std::size_t size);
};
