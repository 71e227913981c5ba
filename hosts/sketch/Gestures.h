#pragma once

#include "App.h"
#include "GestureWords.h"
#include "Lines.h"

#include <functional>
#include <string>

/// The user of the program: reads gestures and does what they say, in dialogs, too.
class Gestures : public DialogUser {
public:
    /// Told of each faulty line, counted from 1.
    using Report = std::function<void(int line, const std::string& message)>;

    /// `goesOn`: the user may try again after a fault; else it ends the work.
    Gestures(Desk& desk, App& app, Lines& lines, bool goesOn, Report report);
    Gestures(const Gestures&) = delete;
    Gestures& operator=(const Gestures&) = delete;
    ~Gestures() override { m_Desk.user = nullptr; }

    /// Works to the end of the lines. A drag or a dialog that is still open then is a fault, and
    /// is ended. False if there were faults.
    bool Run();
    void Work(Dialog& dialog) override;

    /// The table of gestures, one a line.
    static std::string Describe();

private:
    using Words = std::vector<GestureWord>; // behind the first one
    enum Place { OnPage, InDrag, InDialog, Anywhere };
    struct Gesture;
    static const Gesture s_Gestures[];

    bool performNext();
    void perform(const std::string& line);
    void fail(const std::string& message);
    /// The name of a place on one axis, as the recorded macro writes it.
    RecordedValue coordinate(const GestureWord& word, bool isX) const;
    void add(const char* member, const Words& words, std::size_t coordinates);

    void open(const Words& words);
    void set(const Words& words);
    void change(const Words& words);
    void layer(const Words& words);
    void show(const Words& words);
    void line(const Words& words);
    void rectangle(const Words& words);
    void circle(const Words& words);
    void text(const Words& words);
    void select(const Words& words);
    void click(const Words& words);
    void press(const Words& words);
    void drag(const Words& words);
    void release(const Words& words);
    void move(const Words& words);
    void paint(const Words& words);
    void remove(const Words& words);
    void undo(const Words& words);
    void redo(const Words& words);
    void relative(const Words& words);
    void ok(const Words& words);
    void cancel(const Words& words);
    void help(const Words& words);
    void quit(const Words& words);

    Desk& m_Desk;
    App& m_App;
    Lines& m_Lines;
    const bool m_GoesOn;
    const Report m_Report;

    int m_Line = 0;
    bool m_HasFailed = false;
    bool m_IsDone = false;
    Dialog* m_Dialog = nullptr; // the innermost open one
    bool m_IsPressed = false;
    GestureWord m_PressX;
    GestureWord m_PressY;
    int m_DragId = 0; // 0 until the pointer moves
};
