#pragma once

#include <UI_MacroProcessor.h>

#include <new>
#include <stdexcept>

/// Does some work; what runs out of memory or size in it becomes an error of the macro.
template <class Work> void WithinMemory(MacroSupport& processor, Work work) {
    try {
        work();
    } catch (const std::bad_alloc&) {
        processor.OnError(errRuntime, "out of memory");
    } catch (const std::length_error&) {
        processor.OnError(errRuntime, "out of memory");
    }
}
