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

/// Starts and ends the engine. Calls may be nested; each start needs its end.
KEL_MCR_API void MacroEngineDllInitialize();
KEL_MCR_API void MacroEngineDllTerminate();
/// What to look the engine's own texts up with (`TR` on this platform); null before the start.
KEL_MCR_API const void* GetLocalResourceHandle_MacroEngine();
/// The platform's module state as it was at the start: this platform has none, so null.
KEL_MCR_API const void* GetOrigModuleState_MacroEngine();

class UI_MacroImpl;

class KEL_MCR_API UI_Macro : public UI_Tokenizer {
public:
    using PlaybackResultCode = MacroPlaybackResult;
    using enum MacroPlaybackResult;

    /// `nested` true makes the engine of this object the current one as soon as it is made.
    explicit UI_Macro(bool nested);
    /// A copy takes the flag and no engine.
    UI_Macro(UI_Macro const& other);
    UI_Macro& operator=(UI_Macro const& other);
    /// On a running macro: asserts, then stops it.
    ~UI_Macro() override;

    /// Makes an object visible to macros under a name. Owner: the caller keeps the object.
    void Register(MacroEval& object, char const* name);
    void Remove(MacroEval& object);

    /// Makes a file the source without parsing it.
    void OpenMacroFile(SYS_String const& path);
    /// Runs a macro file, or one procedure of it with arguments. Gives the value of the
    /// procedure, else Empty. Raises: any. Re-enters: host objects.
    UI_MacroVariant ExecuteMacro(SYS_String const& file, SYS_String const& function,
                                 UI_MacroVariant* args, int argCount);
    UI_MacroVariant Execute(MacroSource* source, SYS_String const& function, UI_MacroVariant* args,
                            int argCount);
    UI_MacroVariant ExecuteMacroString(SYS_String const& text);
    /// Evaluates a text in the current processor, which may be paused in the middle of a macro:
    /// it sees the variables of the innermost frame and of the module, objects and procedures. An
    /// expression or a call gives its value (an object: a Reference to it), other statements give
    /// Empty. With side effects `x = 1` assigns; without, it compares, and what would change or
    /// call anything raises 46. An undeclared name is an error. Files, frames, mode and current
    /// step are afterwards as before, also when it throws; a `Stop()` from inside holds. Modes set
    /// meanwhile have no effect. Raises: any. Re-enters: any.
    UI_MacroVariant Eval(MacroSource* source, bool sideEffects);
    void Stop();

    static int GetReturnValue();
    static void RequestExit(int code);
    /// For a host member that a macro has called and that opens a modal dialog: runs the block
    /// `withDlg` of that object, if one stands behind the calling statement. 3: it ran; 0: there
    /// is none, or its object went away in the middle; 2: no processor, or no run.
    /// Raises: any. Re-enters: any.
    static PlaybackResultCode ContinuePlayback(char const* name);
    static int InRecordMode();
    static int InPlaybackMode();
    // Recording: MacroSupport says what the modes and logs mean. 0 without a processor.
    static int GetCompressID();
    static int GetRelativeMode();
    /// Sends recorded lines to an output from now on. Takes a reference to it. Outside a run the
    /// processor is reset.
    void StartRecording(MacroOutput* output);
    /// Lets go of the output. A last line that compression holds back is lost.
    void StopRecording();
    static int SetBMWLogFile(char const* path, int append);
    static int InBMWLoggingMode();
    static int EnableAutomation(char const* name, IDispatch* object);
    /// Raises: MacroException with that text; nothing without a processor.
    static void OnError(SYS_String const& message);

    /// The names of the macro's procedures; one empty string if there are none.
    SCC_Array<SYS_String> GetFunctionNames();
    SCC_Array<SYS_String> GetFunctionDescriptions();

    // Colouring macro text. It disturbs no macro, not even a running one.
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
    /// The same for a text. The name stands for its path, and may be empty.
    MacroReport InspectMacroText(SYS_String const& text, SYS_String const& name);

    // Frames of the current processor and its parents; 0 is the innermost.
    int GetFramesCount();
    SYS_String GetContext(int frame);
    int GetPosition(int frame);
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
    UI_MacroVariant run(SYS_String const& file, SYS_String const& function, UI_MacroVariant* args,
                        int argCount);

    bool m_Nested;
    UI_MacroImpl* m_Impl = nullptr;
};
