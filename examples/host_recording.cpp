// A drawing program writes what its user does as macro text, and keeps logs of it.

#include <UI_Macro.h>

#include <cstdio>
#include <cstdlib>

namespace {

//! [output]
/// Shows each recorded line as it comes. A `MacroOutputFile` would write it to a file.
class Screen : public MacroOutput {
public:
    int Record(char const* text) override {
        std::printf("| %s\n", text);
        return 1; // 0 would say that the line is lost
    }
};
//! [output]

/// `Pen.MoveTo x, y` and `Pen.MoveBy dx, dy`.
class Pen : public MacroEval {
public:
    Pen() : MacroEval("Pen") {}

    UI_MacroVariant Evaluate(const char* name, UI_MacroVariant* args, int argc) override {
        const SYS_StrNoCase member(name);
        if (argc == 2 && (member == "MoveTo" || member == "MoveBy"))
            return Move(member == "MoveBy", double(args[0]), double(args[1]), 0), true;
        return MacroEval::Evaluate(name, args, argc);
    }

    //! [command]
    /// What the mouse and macros both end in: does the work, and reports it as macro text. The
    /// lines of one gesture share an id; they hold no distances, because most of them get lost.
    void MoveTo(double x, double y, int gesture) {
        const bool relative = UI_Macro::GetRelativeMode() != 0 && gesture == 0;
        SYS_String line;
        line.Format("Pen.Move%s %g, %g", relative ? "By" : "To", relative ? x - m_X : x,
                    relative ? y - m_Y : y);
        Record(line, gesture);
        m_X = x;
        m_Y = y;
    }
    //! [command]

private:
    void Move(bool relative, double x, double y, int gesture) {
        MoveTo(relative ? m_X + x : x, relative ? m_Y + y : y, gesture);
    }

    double m_X = 0;
    double m_Y = 0;
};

//! [drag]
/// The user drags the pen with the mouse: many moves, of which the first and the last count.
void Drag(Pen& pen, double toX) {
    const int gesture = UI_Macro::GetCompressID();
    for (double x = 1; x <= toX; ++x)
        pen.MoveTo(x, 2 * x, gesture);
}
//! [drag]

void RecordWork(UI_Macro& macro, Pen& pen) {
    //! [record]
    macro.StartRecording(new Screen);
    MacroSupport::GetProcessor()->SetCompressionMode(true);
    pen.MoveTo(0, 0, 0);
    Drag(pen, 500);
    pen.MoveTo(7, 8, 0); // ends the gesture, so its last line is written now
    macro.StopRecording();
    //! [record]

    std::printf("relative:\n");
    macro.StartRecording(new Screen);
    MacroSupport::GetProcessor()->SetCompressionMode(false);
    MacroSupport::GetProcessor()->SetRelativeMode(true);
    pen.MoveTo(10, 10, 0);
    macro.ExecuteMacroString("Pen.MoveBy 1, 1"); // a macro's commands are recorded like the user's
    macro.StopRecording();
    MacroSupport::GetProcessor()->SetRelativeMode(false);
}

//! [file name]
/// Starts a recording as soon as the user has chosen its file, in whatever dialog that was.
class RecordLater : public SCC_EventNode<SYS_String> {
public:
    explicit RecordLater(UI_Macro& macro) : m_Macro(macro) {
        MacroFileNameStorage::GetStorage().Subscribe(*this);
    }
    int OnNotification(int, SYS_String name) override {
        if (!name.IsEmpty()) // empty: the user has changed his mind
            m_Macro.StartRecording(new MacroOutputFile(name));
        return 0;
    }

private:
    UI_Macro& m_Macro;
};
//! [file name]

/// The first line of a file.
SYS_String FirstLine(const char* name) {
    char line[80] = "";
    if (std::FILE* file = std::fopen(name, "r")) {
        if (!std::fgets(line, sizeof line, file))
            std::snprintf(line, sizeof line, "nothing\n");
        std::fclose(file);
    }
    return line;
}

void RecordToFile(UI_Macro& macro, Pen& pen, const char* file) {
    const RecordLater recorder(macro);
    //! [chosen]
    MacroFileNameStorage::GetStorage().OnFileNameSetUp(file);
    //! [chosen]
    pen.MoveTo(3, 4, 0);
    macro.StopRecording();
    std::printf("file: %s", FirstLine(file).c_str());
}

void RecordDialog(UI_Macro& macro) {
    std::printf("dialogs:\n");
    macro.StartRecording(new Screen);
    //! [modal]
    MacroSupport& processor = *MacroSupport::GetProcessor();
    MacroSupport::Record("Options.Show", 0, 0);
    processor.PushModalContext("Options");
    MacroSupport::Record(processor.GetModalContextIndent() + ".Colour = 255", 0, 0);
    processor.PopModalContext();
    //! [modal]
    macro.StopRecording();
}

void KeepLog(Pen& pen, const char* file) {
    //! [named log]
    if (UI_Macro::SetBMWLogFile(file, 0) != 0) {
        pen.MoveTo(1, 2, 0);
        UI_Macro::SetBMWLogFile(nullptr, 0); // closes it
    }
    //! [named log]
    std::printf("log: %s", FirstLine(file).c_str());
}

} // namespace

int main() {
    MacroEngineDllInitialize();
    {
        Pen pen;
        UI_Macro macro(true);
        macro.Register(pen, nullptr);
        //! [program log]
        MacroSupport::GetProcessor()->InitBackgroundMode(); // acts on the switch "log"
        //! [program log]
        RecordWork(macro, pen);
        RecordDialog(macro);
        char file[] = "/tmp/host_recordingXXXXXX";
        if (::mkstemp(file) >= 0) {
            RecordToFile(macro, pen, file);
            KeepLog(pen, file);
        }
        std::remove(file);
    }
    MacroEngineDllTerminate();
}
