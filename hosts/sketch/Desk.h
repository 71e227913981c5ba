#pragma once

#include "Editor.h"
#include "Recorder.h"

class Dialog;

/// Whoever works a dialog when no macro does.
class DialogUser {
public:
    virtual ~DialogUser() = default;
    /// Returns when the dialog is closed, or when nobody is going to close it.
    virtual void Work(Dialog& dialog) = 0;
};

/// What the objects of the program share.
struct Desk {
    Editor editor;
    Recorder recorder;
    DialogUser* user = nullptr;
};
