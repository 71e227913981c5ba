#pragma once

#include <UI_ParserTree.h>

struct ScriptFile;

/// Where a run stands: at a statement that has not run.
struct Place {
    const ScriptFile* file = nullptr;
    long line = -1; // from 0
    int frames = 0;
    int scripts = 0; // files that are being executed inside the frame
    const ParserTree::Node* node = nullptr;

    bool IsInside(const Place& other) const {
        return frames != other.frames ? frames > other.frames : scripts > other.scripts;
    }
    bool IsBesides(const Place& other) const {
        return frames == other.frames && scripts == other.scripts;
    }
    /// The files executed inside one another at this node, within its procedure.
    static int CountScripts(const ParserTree::Node* node);
};

/// Decides where a step ends.
class Stepping {
public:
    enum Kind { Continue, Step, Next, Finish };

    /// From a place, `count` times over.
    void Start(Kind kind, const Place& from, int count);
    bool IsActive() const { return m_Kind != Continue; }
    /// Whether the run is to stop here; a repeated step begins anew.
    bool EndsAt(const Place& here);

private:
    bool leaves(const Place& here) const;

    Kind m_Kind = Continue;
    Place m_From;
    int m_Count = 1;
};
