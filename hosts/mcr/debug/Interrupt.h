#pragma once

/// Ctrl-C: noted here, and asked for at each statement and at the prompt. A second one that comes
/// before the first was taken ends the process. One object at a time.
class Interrupt {
public:
    Interrupt();
    Interrupt(const Interrupt&) = delete;
    Interrupt& operator=(const Interrupt&) = delete;
    ~Interrupt();

    static bool IsAsked();
    /// Forgets it and waits for the next one. That one wakes a read if it is to; a line that the
    /// macro waits for is better read to its end, so that no answer is lost.
    static void Clear(bool wakesReads = false);
};
