#pragma once

/// Ends a run on Ctrl-C or when its time is over. Signals only set a flag, which the run asks at
/// each statement; they also wake a macro that waits for input. One watch at a time.
class Watch {
public:
    enum Reason { Running, Interrupted, TimedOut };

    /// Starts watching. `seconds` 0: no time limit.
    explicit Watch(double seconds);
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;
    ~Watch();

    /// Why the run is to end, or Running.
    static Reason GetReason();
    /// The words for it.
    static const char* Describe(Reason reason);
};
