#pragma once

// The door of the engine: what a host holds. Most operations forward to the current processor.
//
//     MacroEngineDllInitialize();
//     {
//         UI_Macro macro(true);
//         macro.ExecuteMacro("drawing.mcr", "", nullptr, 0);
//     }
//     MacroEngineDllTerminate();

#include <MacroInspection.h>
#include <MacroReport.h>
#include <UI_MacroProcessor.h>
#include <UI_MacroVariant.h>
#include <UI_Tokenizer.h>

/// Starts the engine. Calls may be nested; each start needs its end.
KEL_MCR_API void MacroEngineDllInitialize();
/// Ends what one start began. An end without a start is an assertion and does nothing.
KEL_MCR_API void MacroEngineDllTerminate();
/// What to look the engine's own texts up with (`TR` on this platform); null before the start.
KEL_MCR_API const void* GetLocalResourceHandle_MacroEngine();
/// The platform's module state as it was at the start: this platform has none, so null.
KEL_MCR_API const void* GetOrigModuleState_MacroEngine();

class UI_MacroImpl;

/// Owns an engine, which the first operation that needs it makes. Of the operations the static
/// ones and those that read frames address the current processor, whichever object they are called
/// on. "Raises: any" is a MacroException for what is wrong in the macro, or whatever an object of
/// the host throws. All calls come from one thread, also those out of a running macro.
class KEL_MCR_API UI_Macro : public UI_Tokenizer {
public:
    using PlaybackResultCode = MacroPlaybackResult;
    using enum MacroPlaybackResult;

    /// `nested` true makes the engine of this object the current one as soon as it is made.
    explicit UI_Macro(bool nested);
    /// A copy takes the flag and no engine.
    UI_Macro(UI_Macro const& other);
    /// Takes over the flag and the text being coloured; keeps its own engine.
    UI_Macro& operator=(UI_Macro const& other);
    /// On a running macro: asserts, then stops it; the engine ends when its run has returned.
    ~UI_Macro() override;

    /// Makes an object visible to macros under a name (null: its own) in place of what had the
    /// name before. An empty name does nothing. Owner: the caller keeps the object; once it has
    /// ended its own name is unknown again, and another name reads as Null.
    void Register(MacroEval& object, char const* name);
    /// Makes the own name of an object unknown again; a name that Register was given stays.
    void Remove(MacroEval& object);

    /// Makes a file the source without opening or parsing it, and resets the engine. Asserts that
    /// the engine is the current one. Raises: 42 while its macro runs.
    void OpenMacroFile(SYS_String const& path);
    /// Runs a macro file, or one procedure of it with arguments. Gives the value of the
    /// procedure, else Empty. Without a file the source in use is run. A name lacking its
    /// directory or extension is completed from the current directory and ".mcr"; within a macro
    /// a relative one lies beside that macro's file. Module code does not run for a procedure.
    ///
    /// Owner: the caller keeps `args`, which may be null without arguments; a Reference among them
    /// lets the macro write to its target. Raises: any; 42 while a macro of this object runs, 36
    /// for a file that cannot be read, 46 for a wrong number of arguments, "Function or Sub ...
    /// not found". Empty, and no exception, also comes of a MacroStopException from below, of an
    /// open `For` (see GetLastErrorText of the processor), and, with an assertion, of an engine
    /// that is not the current one. Re-enters: host objects, the source, the host's hooks.
    UI_MacroVariant ExecuteMacro(SYS_String const& file, SYS_String const& function,
                                 UI_MacroVariant* args, int argCount);
    /// The same with a source, to which the engine takes a reference until the next one.
    UI_MacroVariant Execute(MacroSource* source, SYS_String const& function, UI_MacroVariant* args,
                            int argCount);
    /// The same with a text, by way of a temporary file, which stays behind when the run throws.
    /// Raises: SYS_Exception if that file cannot be written.
    UI_MacroVariant ExecuteMacroString(SYS_String const& text);
    /// Evaluates a text in the current processor, which may be paused in the middle of a macro:
    /// it sees the variables of the innermost frame and of the module, objects and procedures. An
    /// expression or a call gives its value (an object: a Reference to it), other statements give
    /// Empty. With side effects `x = 1` assigns; without, it compares, and what would change or
    /// call anything raises 46. An undeclared name is an error. Files, frames, mode and current
    /// step are afterwards as before, also when it throws; a `Stop()` from inside holds. Modes set
    /// meanwhile have no effect. Raises: any. Re-enters: any.
    UI_MacroVariant Eval(MacroSource* source, bool sideEffects);
    /// Ends the run and lets go of source, output, frames, variables and open files; from inside a
    /// run at once for the macro, and for the rest when the run has returned. Asserts that there is
    /// an engine. Raises: never. Re-enters: OnParserReset of host objects.
    void Stop();

    /// What RequestExit was given last; 0 without a processor.
    static int GetReturnValue();
    /// Keeps a number for GetReturnValue. It ends nothing.
    static void RequestExit(int code);
    /// For a host member that a macro has called and that opens a modal dialog: runs the block
    /// `withDlg` of that object, if one stands behind the calling statement. 3: it ran; 0: there
    /// is none, its object went away in the middle, or the processor is paused, stopped or
    /// finished; 2: no processor, or nothing to run.
    /// Raises: any. Re-enters: any.
    static PlaybackResultCode ContinuePlayback(char const* name);
    /// 1 while recorded lines go to an output of the outermost processor. 0 without a processor.
    static int InRecordMode();
    /// How many runs of the outermost processor are under way. 0 without a processor.
    static int InPlaybackMode();
    /// These and the logs below: what MacroSupport says of them. 0 without a processor.
    static int GetCompressID();
    static int GetRelativeMode();
    /// Sends recorded lines to an output from now on. Takes a reference to it. Outside a run the
    /// processor is reset.
    void StartRecording(MacroOutput* output);
    /// Lets go of the output. A last line that compression holds back is lost.
    void StopRecording();
    static int SetBMWLogFile(char const* path, int append);
    static int InBMWLoggingMode();
    /// Turns a registered or built-in name into an automation object. Owner: the caller keeps the
    /// object, which is not counted. 1, or 0 for an unknown name or without a processor.
    static int EnableAutomation(char const* name, IDispatch* object);
    /// Raises: MacroException with that text, at the place of the run; nothing without a processor.
    static void OnError(SYS_String const& message);

    /// The names of the macro's procedures, first declared first; one empty string if there are
    /// none. Parses the source if that has not been done. Asserts that the engine is the current
    /// one. Raises: parse errors.
    SCC_Array<SYS_String> GetFunctionNames();
    /// The comments in front of the same procedures, "" for none. Does not parse: it goes with a
    /// call of GetFunctionNames before it. An empty array if there are no procedures.
    SCC_Array<SYS_String> GetFunctionDescriptions();

    // Colouring macro text, see UI_Tokenizer. It disturbs no macro, not even a running one.
    void SetInputString(const char* text) override;
    int GetNextToken(CStringA& piece) override;
    int GetFgColor(int pieceClass) override;

    /// Parses a file without running it: 1 if it is a macro, else 0 and, if `errorLine` is given,
    /// the zero-based line of the error; a file that does not exist leaves that alone. The code,
    /// text and line stay in the processor as its last error. Lets go of the source before.
    /// Raises: 42 while a macro runs.
    int CheckMacroFile(SYS_String const& path, int* errorLine);
    /// Parses a file in the same way, and tells all that an editor may want to know of it.
    MacroReport InspectMacroFile(SYS_String const& path);
    /// The same for a text without a byte order mark. The name stands for its path, and may be
    /// empty.
    MacroReport InspectMacroText(SYS_String const& text, SYS_String const& name);

    /// How many frames the current processor and its parents have: 0 is the innermost, the last
    /// one the module of the outermost macro. None without a processor. The next three assert that
    /// the frame exists, and then give "", 0 and null.
    int GetFramesCount();
    /// The name of the procedure; "Macro global code" for a module.
    SYS_String GetContext(int frame);
    /// The line at which the frame stands, from 0.
    int GetPosition(int frame);
    /// Owner: the engine; who keeps it takes a reference. May be null.
    MacroSource* GetSource(int frame);
    /// The variables of a frame; none for a frame that does not exist. Raises: never.
    SCL_Vector<MacroVariableInfo> GetVariables(int frame);
    /// Copies the value of a variable of that frame, else of the module below it; false if there
    /// is none. `ListMacroParts` opens it further. Raises: never.
    bool GetVariable(int frame, SYS_String const& name, UI_MacroVariant& value);
    /// Gives such a variable a value: an object is bound, everything else is copied. False, with
    /// nothing done, for an unknown name or a constant. Raises: what the assignment raises.
    /// Re-enters: host objects.
    bool SetVariable(int frame, SYS_String const& name, UI_MacroVariant const& value);

private:
    UI_MacroImpl& impl();

    bool m_Nested;
    UI_MacroImpl* m_Impl = nullptr;
};
