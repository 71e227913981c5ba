#pragma once

// The processor: all that a running macro has. `MacroSupport` holds the state and the services,
// `MacroParser` parses and runs. The processor is itself the root object of the names.

#include <MacroException.h>
#include <MacroHostHooks.h>
#include <MacroInspection.h>
#include <MacroSource.h>
#include <SCC_Event.h>
#include <SCC_Map.h>
#include <SCC_SafePointer.h>
#include <SCL_Vector.h>
#include <UI_MacroEval.h>
#include <UI_ParserTree.h>
#include <safeflag.h>
#include <sccstack.h>

#include <memory>

class EvaluationGuard;
class FileTable;
class FrameStack;
class MacroScanner;
class RunGuard;
class SourceLines;
class TextFile;
class TreeBuilder;
class TreeUpdate;
class UI_MacroErr;
class UI_MacroWScript;
struct ContextBlock;

/// What `PlayBack` and `ContinuePlayback` came to.
enum MacroPlaybackResult {
    pbNotHandled = 0, ///< no waiting block matched, or the dialog object vanished
    pbFinished = 1,   ///< a run came to its end
    pbFailed = 2,     ///< nothing to run, no processor, or the block's context is broken
    pbBlockDone = 3   ///< the block ran to its end
};

/// What `Option` statements set.
struct MacroOptions {
    int explicitDeclarations = 0; ///< 1: a name must be declared before it is used
};

/// A `Sub` or `Function` that the current macro declares.
class KEL_MCR_API FunctionTableItem {
public:
    using Declaration = ParserTree::NodeImpl<ParserTree::Function, false>;

    FunctionTableItem() = default;
    explicit FunctionTableItem(Declaration* declaration) : m_Declaration(declaration) {}

    /// As its header spells it. This and the next two assert that there is a declaration.
    SYS_String GetName() const;
    /// The comment in front of it, without white space around it.
    SYS_String GetDescription() const;
    /// False while the procedure is declared but its body has not been parsed.
    bool HasBody() const;
    /// Owner: the tree; it goes with the next parse.
    Declaration* GetDeclaration() const { return m_Declaration; }

private:
    Declaration* m_Declaration = nullptr;
};

/// State and services of a run. "Raises: any" is a MacroException for what is wrong in the macro,
/// or whatever an object of the host throws.
class KEL_MCR_API MacroSupport : public MacroEval {
public:
    enum ExecutionMode {
        emRun = 0,      ///< to a breakpoint or the end
        emStopped = 1,  ///< ends the run
        emPaused = 2,   ///< stands still until the mode changes
        emStepInto = 3, ///< to the next procedure that is entered
        emStepOut = 4,  ///< until the procedure has returned; at module level like emStepOver
        emStepOver = 5, ///< to the next line of the running procedure
        emFinished = 6, ///< the run came to its end, or an error ended it
        emEval = 7,     ///< evaluates a text, with its effects
        emEvalPure = 8  ///< evaluates a text; what has effects raises 46
    };

    /// A keyword and its token number.
    struct TokenNode {
        const char* text;
        int token;
    };
    /// A built-in function and its handler.
    struct FuncNode {
        const char* name;
        MacroFunctionHandler handler;
    };
    class MacroLogFile;

    /// `nested` makes this the current processor, with the previous one as its parent.
    explicit MacroSupport(bool nested);
    MacroSupport(const MacroSupport&) = delete;
    MacroSupport& operator=(const MacroSupport&) = delete;
    ~MacroSupport() override;

    using MacroEval::operator=;

    // The current processor.
    /// Null before the first processor that was made with `nested`, and after the last.
    static MacroSupport* GetProcessor() { return s_Processor; }
    /// Null is allowed. Refuses the log recorder, by assertion.
    static void SetProcessor(MacroSupport* processor);
    static MacroSupport* s_Processor;
    static bool s_bWaiting; ///< a flag for the host; the engine does not use it

    /// Takes a copy for all processors, at any time, also before the first one and out of a hook
    /// that is running.
    static void SetHostHooks(const MacroHostHooks& hooks);
    static const MacroHostHooks& GetHostHooks();
    /// For all processors, from now on. The bound on strings holds for every SYS_String.
    static void SetLimits(const MacroLimits& limits);
    static const MacroLimits& GetLimits();

    /// The keywords in lower case and the operators: GetTokensCount rows.
    static const TokenNode s_Tokens[];
    static int GetTokensCount();
    static const FuncNode s_Functions[];

    // Names. The processor is the root: a name is looked up among objects, built-in functions,
    // type library constants, procedures and variables, in this order.
    UI_MacroVariant Evaluate(const char* name, UI_MacroVariant* args, int argc) override;
    UI_MacroVariant evaluate(const char* name, UI_MacroVariant* args, int argc, bool isCall);
    UI_MacroVariant evaluate(const MacroName* name, const SYS_String& spelling,
                             UI_MacroVariant* args, int argc, bool isCall);
    UI_MacroVariant evaluateDeref(const UI_MacroVariant& value, const SYS_String& name,
                                  UI_MacroVariant* args, int argc, bool isCall);
    /// A variable of the top frame, or null. Owner: the frame.
    UI_MacroVariant* LookupVar(const SYS_StrNoCase& name);
    /// The variable of the top frame, made if missing; null without a frame. Owner: the frame.
    UI_MacroVariant* RegisterVar(const SYS_StrNoCase& name);
    /// False if the top frame has no such variable. References to it read as Null from now on.
    bool RemoveVar(const SYS_StrNoCase& name);
    /// A variable as an expression sees it: top frame, bottom frame, else made in the top frame.
    UI_MacroVariant* getExecutionStackVar(const SYS_StrNoCase& name);
    UI_MacroVariantParam* getExecutionStackVar(const MacroName* name, const SYS_String& spelling,
                                               unsigned& place);
    /// Raises the error of an undeclared name; false if it may be made.
    bool checkExplicit(const char* name);
    /// The one string of that text that the parse shares. Owner: the processor, to its reset.
    const SYS_String& getDicStr(const SYS_String& text);
    MacroOptions& getOptions() { return m_Options; }

    // Sources, outputs, modes.
    /// Back to an empty module frame: procedures, frames, variables and open files go; registered
    /// objects, source, output, mode and the last error stay. Not during a run. Re-enters: the
    /// source, and OnParserReset of all objects; what they throw goes through.
    void Reset();
    /// Resets and takes a reference to the source, which may be null. Re-enters: as Reset.
    void SetSource(MacroSource* source);
    MacroSource* GetSource() const { return m_Source; }
    MacroOutput* GetOutput() const { return m_Output; }
    /// Takes a reference to the output of recorded lines; null ends the recording.
    void SetOutput(MacroOutput* output);
    /// The same, with nothing held back from an earlier recording.
    void BeginRecording(MacroOutput* output);
    ExecutionMode GetExecutionMode() const { return m_ExecutionMode; }
    /// Takes effect behind the step that runs. Without effect while a stop or an evaluation is
    /// under way, which can only be stopped or finished. Pausing calls OnPause of the source.
    /// Re-enters: the source.
    void SetExecutionMode(ExecutionMode mode);
    /// Whether the mode is none of stopped, paused and finished.
    virtual bool IsExecuting() const;
    /// How many runs are under way, one inside the other.
    virtual int InPlaybackMode() const;
    /// 1 while there is an output.
    virtual int InRecordMode() const;
    /// What RequestExit was given last.
    int GetReturnValue() const { return m_ReturnCode; }
    /// Keeps a number for GetReturnValue. It ends nothing.
    void RequestExit(int code);
    /// The line, from 0, at which an error would be told now: of the parse, else of the run.
    int GetParsePosition() const;
    /// The line, from 0, of the step that runs; 0 without one.
    long GetCurrentLine() const;

    // Work.
    /// Runs a file (empty: the source in use), or one procedure of it, see UI_Macro. Raises: any;
    /// 42 inside a run. Re-enters: any.
    virtual UI_MacroVariant ExecuteMacro(const SYS_String& file, const SYS_String& function,
                                         UI_MacroVariant* args, int argc);
    /// Evaluates the source in use, an expression or statements, with the frames as they are; the
    /// value of an expression or a call, else Empty. Without side effects assignments and calls of
    /// the macro's procedures are refused. The tree is replaced: `UI_Macro::Eval` puts the running
    /// macro's aside first. Raises: any. Re-enters: any.
    virtual UI_MacroVariant Eval(bool sideEffects);
    /// Passes on to Run.
    virtual MacroPlaybackResult PlayBack(int resume, MacroSource* source, char const* name);
    /// With `resume` 0: runs what has been parsed; if that is nothing, parses the source that is
    /// given first. pbFinished, or pbFailed if there is nothing to run. The mode must be one that
    /// runs: in emFinished, for one, the run is over at once. Else: runs the block of the
    /// dialog `name`, see UI_Macro::ContinuePlayback. Raises: any; 42 for a run inside a run of
    /// this processor, or too many runs inside each other. Re-enters: any.
    virtual MacroPlaybackResult Run(int resume, MacroSource* source, char const* name) = 0;
    /// Calls a procedure of the macro, also of a paused or finished one, and gives its value; step
    /// and mode are then as before. Owner: the caller keeps `args`. Raises: any; 46 for an unknown
    /// name or a wrong number of arguments. Re-enters: any.
    virtual UI_MacroVariant Call(const SYS_String& function, UI_MacroVariant* args, int argc) = 0;
    /// See MacroParser.
    virtual bool Parse() = 0;
    /// Parses the source unless it has been parsed since the last reset. Raises: parse errors.
    void RefreshFunctionTable();
    /// Turns a registered or built-in name into an automation object, which is not counted; 0 if
    /// the name is unknown.
    int EnableAutomation(const char* name, IDispatch* object);
    /// Applies a name and its argument lists to a value, one list after the other. Raises: any.
    /// Re-enters: host members.
    UI_MacroVariant EvalArgListList(UI_MacroVariant* target, const char* name,
                                    const UI_MacroArray& lists);

    // Errors. All always throw MacroException, with file and line of the parse or run, and store
    // it as the last error.
    /// The text of the code, ": " and the parameter; of code 1 the parameter alone.
    virtual UI_MacroVariant OnError(MacroERR_Code code, const SYS_String& param);
    /// A text of its own; its code is 0.
    virtual UI_MacroVariant OnError(const SYS_String& message);
    /// The text of the code alone, without the place of a parameter.
    UI_MacroVariant OnError(MacroERR_Code code);
    /// Of the last error since a run or check began: see MacroERR_Code; 0 for a text of its own, 1
    /// for none. Also tells of an open `For`, which ends a parse without an exception.
    int GetLastErrorCode() const { return m_LastError.code; }
    /// From 0, as the engine counts: a `rem` line counts twice. 0 without an error.
    long GetLastErrorLine() const { return m_LastError.line; }
    /// The whole text but for what a parse error adds about its place; "" without an error.
    const SYS_String& GetLastErrorText() const { return m_LastError.text; }
    void ClearLastError();

    // Frames. 0 is the innermost; the numbers run on through the parents.
    int GetFramesCount() const;
    /// Owner: the processor, until the procedure returns. A frame that does not exist is an
    /// assertion and null.
    ExecutionContext* GetContext(int frame) const;
    FrameStack& GetFrames() const { return *m_ContextStack; }
    /// The processor that was current when this one was made; null if there was none, or if it has
    /// gone.
    MacroSupport* GetParentProcessor() const { return m_Parent; }

    // Variables of a frame, for a debugger; frames are numbered as above.
    /// All that the frame holds, in the order they were made; the names that every module has
    /// (`Nothing`, `Empty`, `Null`) are left out. Raises: never.
    SCL_Vector<MacroVariableInfo> ListVariables(int frame) const;
    /// Copies the value of a variable of that frame, else of the module below it; false if there
    /// is none. An object comes as a Reference to it. Raises: never.
    bool ReadVariable(int frame, const SYS_String& name, UI_MacroVariant& value) const;
    /// Assigns to such a variable as the macro would: an object is bound, everything else is
    /// copied. False, with nothing done, for an unknown name or a constant. Raises: what the
    /// assignment raises. Re-enters: host objects.
    bool WriteVariable(int frame, const SYS_String& name, const UI_MacroVariant& value);

    // Recording. A line that a command of the host reports goes to the outputs and logs of all
    // processors. Re-enters: outputs of the host.
    /// Reports a line, without its end. The id is that of its gesture, 0 for none.
    static void Record(char const* text, int id, int unused);
    using MacroEval::Record;
    /// A new id for the lines of one gesture, such as a drag. The first is 2.
    int GetCompressID() { return ++m_CompressID; }
    /// While on, only the first and the last line of each gesture are written, the last when a
    /// line with another id comes. A gesture of a single line is written twice.
    void SetCompressionMode(bool on) { m_CompressionMode = on; }
    virtual bool GetCompressionMode() const { return m_CompressionMode; }
    /// Kept for the host's own recording code: whether it writes coordinates as distances.
    void SetRelativeMode(bool on) { m_RelativeMode = on; }
    bool GetRelativeMode() const { return m_RelativeMode; }
    /// Records the line that opens the block of a modal dialog. What is recorded until the
    /// matching PopModalContext belongs into the block; its lines begin with the indent below.
    void PushModalContext(char const* name);
    /// Records the line that closes the innermost block; nothing without an open one.
    void PopModalContext();
    /// The name of the innermost open dialog; "" without one.
    SYS_String GetModalContext() const;
    /// Two blanks for each open dialog.
    SYS_String GetModalContextIndent() const;
    /// How many dialogs are open.
    int GetModalContextLevel() const;

    // Logs of recorded lines, which need no recording.
    /// Opens the log of the program run if the switch "log" is on the command line: the file that
    /// the switch names, completed from the application's name, ".log" and its folder "Logs". The
    /// log of the run before becomes ".bak". One log serves all processors, to the end of the
    /// program; a second call does nothing. Without a log that can be opened there is none.
    void InitBackgroundMode();
    /// Whether this processor writes that log: only the log recorder does.
    virtual bool InBackgroundMode() const;
    /// Opens a log of what is recorded while this processor runs no macro: each line at once,
    /// uncompressed. Gives 1, or 0 if the file cannot be opened (an assertion). With a log open
    /// another path is an assertion and changes nothing; null closes the log.
    int SetBMWLogFile(char const* path, int append);
    /// 1 while that log is open.
    int InBMWLoggingMode() const;

    // Files by number. A number that was never opened is a closed file; printing to it, reading
    // from it and closing it do nothing.
    /// Raises: 36 with the name if the file cannot be had in this way.
    void OnOpen(const SYS_String& name, ParserTree::FileOpenMode mode, int stream,
                ParserTree::FileAccessMode access, ParserTree::FileLockMode lock,
                long recordLength);
    /// Closes the files of those numbers. Raises: what converting them to integers raises.
    void OnClose(UI_MacroVariant* numbers, long count);
    void CloseAllFiles();
    /// Raises: 37 for a file that is not open for printing.
    void OnPrint(UI_MacroVariant* items, long count, int stream);
    /// Reads one field for each target. Raises: 37 for a file that is not open for reading, 36 at
    /// its end. Re-enters: host objects.
    void OnInput(UI_MacroVariant* targets, long count, int stream);
    /// Sets the column behind which output goes on in a new line; 0 for none. Nothing for a closed
    /// file.
    void OnWidth(int stream, long width);
    /// The stream of a number, made closed if there is none. Owner: the processor, to its reset.
    TextFile& GetFile(int stream);
    FileTable& GetFiles() const;

    // Services for the nodes of the tree.
    /// Opens a block in the top frame; false without a frame.
    bool With(const UI_MacroVariant& object, ParserTree::Node* with, bool isDialog);
    /// Closes the innermost block of the top frame; false if that is no `With`.
    bool WithEnd();
    /// Marks the innermost block of a kind as left; 0 if there is none.
    int BreakLoop(int kind);
    /// Closes the blocks of the top frame down to a place; 1 if one stays open, else 0.
    int PopContextUpToPosition(int position);
    /// Makes the elements of a fixed array Empty, or the variable that holds another one. Raises:
    /// 27 for what is no array.
    void OnErase(UI_MacroVariant& value);
    /// Starts the random numbers anew; null is the seed 1.
    void OnRandomize(UI_MacroVariant* seed);

    /// The cell of a node for the top frame, made if it has none; null without a frame.
    ParserTree::Cell* getResultVal(ParserTree::Node* node);
    /// The cell if there is one.
    ParserTree::Cell* findResult(ParserTree::Node* node) const;
    void releaseResult(ParserTree::Node* node);

    /// A number that changes whenever a name may have got another meaning.
    unsigned GetNamesState() const;
    /// Whether a name can only be a procedure or a variable in that state. The procedure of that
    /// name is given along, null if there is none.
    bool IsOwnName(const MacroName* name, const FunctionTableItem*& procedure) const;
    /// The built-in function that a name calls; null if it means anything else.
    MacroFunctionHandler FindBuiltIn(const MacroName* name) const;
    /// The same procedure, or null where the name is to be read as a variable. `place` remembers
    /// where the variable was found.
    const FunctionTableItem* CalledProcedure(const FunctionTableItem* procedure,
                                             const MacroName* name, bool isApplied,
                                             unsigned& place) const;
    /// The procedures of the macro and of the scripts that it has run, first declared first.
    SCC_Map<SYS_StrNoCase, FunctionTableItem>& GetProcedures() { return m_Functions; }
    ParserTree::NodeImpl<ParserTree::Function, false>* GetCurrentFunction() const {
        return m_CurrentFunction;
    }
    bool IsParsing() const { return m_Parsing; }
    MacroScanner& GetScanner() { return *m_Scanner; }
    bool IsInEvaluation() const {
        return m_Evaluating || m_ExecutionMode == emEval || m_ExecutionMode == emEvalPure;
    }
    ParserTree::Step& Current() { return m_Current; }
    /// Whether an entry of this processor is on the native stack: a run, a parse, or the way there.
    bool IsBusy() const { return m_Entries > 0; }
    /// Ends what is going on; the reset follows when the outermost entry has returned.
    void RequestStop();
    /// Whether a stop waits for the outermost entry.
    bool IsStopping() const { return m_StopPending; }

protected:
    friend class MacroParser;
    friend class TreeBuilder;
    friend class ParserTree;
    friend class EntryGuard;
    friend class RunGuard;
    friend class EvaluationGuard;
    friend class TreeUpdate;
    friend class cMacroContextSwaper;
    friend class UI_Macro;

    static SCC_SharedPointer<Map> InitFunctionsMap();
    static Map* functionsMap();

    void OnRecord(int id, char const* text);
    /// Where the lines go beside the output of a recording; null for nowhere.
    virtual MacroOutput* backgroundLog() { return nullptr; }
    [[noreturn]] void raise(MacroException& error, int code, long line);
    long errorLine() const;
    void finishStop();
    static void callStatementHook(long line);
    /// False if the host has none.
    static bool CallIdleHook();
    void pushBottomFrame();
    static bool s_HasStatementHook;
    static unsigned s_OtherChanges; // of names: by a type library, or by an entry that is rewritten
    static SCC_Event<char const*>& RecordEvent();
    UI_MacroVariant* lookUpEntry(const MacroName* name) const;
    UI_MacroVariantParam* findVariable(const MacroName* name, unsigned& place) const;
    UI_MacroVariantParam* findVariableOf(int frame, const SYS_String& name) const;
    bool readEvaluation(ExecutionMode mode, EvaluationGuard& guard);
    bool parseEvaluation(ExecutionMode mode, bool asExpression, EvaluationGuard& guard);
    bool isCallFirst() const;
    virtual bool hasUnits() const = 0;
    virtual void endCall(bool failed) = 0;

    std::unique_ptr<UI_MacroWScript> m_WScript;
    std::unique_ptr<UI_MacroErr> m_Err;

    // Per parse.
    std::unique_ptr<MacroScanner> m_Scanner;
    MacroOptions m_Options;
    bool m_Parsing = false;
    SCC_Map<SYS_StrNoCase, FunctionTableItem> m_Functions;
    bool m_IsTreeOld = false; // parsed before the last reset: its procedures are not in the table
    SCL_Pointer<MacroSource> m_Source;

    // Per run.
    ExecutionMode m_ExecutionMode = emStopped;
    cSafeCounter m_PlaybackDepth;
    std::unique_ptr<FrameStack> m_ContextStack;
    ParserTree::Step m_Current;
    ParserTree::NodeImpl<ParserTree::Function, false>* m_CurrentFunction = nullptr;
    MacroPlaybackResult m_ResultCode = pbNotHandled;
    int m_ReturnCode = 0;
    int m_Entries = 0;
    bool m_StopPending = false;
    bool m_Evaluating = false;       // an evaluation is on the native stack
    bool m_EvaluationStarts = false; // the next run is the evaluated text
    bool m_Abandoned = false;        // the owner has gone: deleted by the outermost entry
    SCL_Vector<SCL_Pointer<ParserTree>> m_OldTrees; // given up under a run that may be in them
    ParserTree::Step m_PausedAt;                    // the step at which the last pause happened
    std::unique_ptr<FileTable> m_Files;

    // Recording.
    SCC_ObjectEventHook<MacroSupport, char const*> m_RecordHook;
    SCL_Pointer<MacroOutput> m_Output;
    std::unique_ptr<MacroLogFile> m_BMWLog; // null while there is none
    SCC_Stack<SYS_String> m_ModalContexts;
    SYS_String m_LastRecorded;
    int m_LastCompressID = 0;
    int m_CompressID = 1;
    bool m_CompressionMode = false;
    bool m_RelativeMode = false;

    // Errors.
    struct LastError {
        int code = 1;
        long line = 0;
        SYS_String text;
    };
    LastError m_LastError;
    long m_FailingOffset = -1; // of the token at which a parse failed, in its text; -1 none
    bool m_CheckMode = false;  // a parse for its own sake: the tree of a failed one stays

    bool m_Nested;
    SCC_SafePointer<MacroSupport> m_Parent;
};

/// Parses, and walks the tree.
class KEL_MCR_API MacroParser : public MacroSupport {
public:
    explicit MacroParser(bool nested);
    ~MacroParser() override;

    using MacroSupport::operator=;

    MacroPlaybackResult Run(int resume, MacroSource* source, char const* name) override;
    UI_MacroVariant Call(const SYS_String& function, UI_MacroVariant* args, int argc) override;
    /// Parses the source into the tree, in place of what was there; true if it can run. False
    /// without a source, and if a `For` stayed open: the last error then tells of it, with no tree.
    /// Raises: parse errors; 36 if the source's file cannot be read. Re-enters: the source.
    bool Parse() override;

    /// One changed line of a macro: 0 inserted, 1 deleted, 2 changed. Lines count from 0 as the
    /// table stands after the changes before it in the list.
    struct LineChange {
        int kind;
        int line;
    };
    /// Takes over an edited source: reads its text and parses the changed lines alone. A paused
    /// macro goes on with them; frames and variables stay, and a deleted current line makes it go
    /// on at the line before. An empty list tries lines again that an earlier call has refused.
    /// False with the macro stopped if a `For` stays open, or if the edit breaks what is running:
    /// a procedure, a calling line, a `With`, the head of a `For`. False also without a source.
    /// Where a `rem` line counts twice, a change of its number is two changes. Raises: the error of
    /// a faulty text, which leaves the macro paused and to be mended; 42 during an evaluation, a
    /// parse or another edit. Re-enters: the source.
    virtual bool Reparse(SCL_Vector<LineChange> const& changes);

    /// The next token of the text being parsed: 0 at the end, a character, a token number, or a
    /// negative one for a string without its end.
    virtual int NextToken();
    /// Raises: 24, or the error of the block in which the text stands; never returns normally
    /// unless overridden.
    virtual void OnSyntaxError(int line);

    ParserTree& GetTree() const { return *m_Tree; }
    TreeBuilder& GetBuilder() { return *m_Builder; }

    /// Raises 25 for a name that may not be declared here; true if it may.
    bool CheckName(const SYS_String& name);
    /// Records a declaration; a module variable exists from now on.
    void Declare(const SYS_String& name, bool isConstant);

    // Calls, for the nodes of the tree.
    /// `known` is the procedure that the name of the value probably calls.
    ParserTree::Step EnterProcedure(ParserTree::Node& call, ParserTree::Cell& target,
                                    const FunctionTableItem* known = nullptr);
    ParserTree::Step LeaveProcedure(ParserTree::Function& function);
    /// Makes the unit of a node, its source and its options current.
    void SwitchUnit(ParserTree::ScriptUnit* unit);
    /// Drops the procedures that a unit declares.
    void ForgetProceduresOf(ParserTree::ScriptUnit* unit);
    /// Parses a unit's source into its root; false if a block stayed open.
    bool ParseAll();

    /// Runs until there is nothing left to run. Raises: any.
    void ExecutionStep();

protected:
    friend class ParserTree;
    friend class RunGuard;
    friend class SourceLines;
    friend class TreeUpdate;
    friend class cMacroContextSwaper;
    friend class UI_Macro;

    /// Parses the next text of the source, and all further lines of one that gives lines; false
    /// if there is none. Keeps the scanner's line counter.
    bool ParseLine(SYS_String& text);
    [[noreturn]] void refuseSource();
    /// Parses this text into the open block; if it continues, more lines come from the source.
    void ParseText(SYS_String& text, bool continues);
    int prefixToken();
    void noteOpenBlock();
    MacroPlaybackResult Finish();
    MacroPlaybackResult ResumeWith(char const* name);
    UI_MacroVariant* findDialog(char const* name);
    ParserTree::Step findContext(ParserTree::Node* expression, const ParserTree::Node* context);
    MacroPlaybackResult runDialogBlock(ParserTree::NodeImpl<ParserTree::With, true>& with,
                                       ParserTree::Step start);
    bool stopOnError(MacroException& error);
    bool CheckBreak(const ParserTree::Step& step);
    bool takeStep(ParserTree::Step& step, ExecutionMode mode);
    void runInMode();
    void RunToBreak();
    void RunFast();
    // The loops that step tell whether they ended by their own rule.
    bool RunStepInto();
    bool RunStepOver();
    bool RunStepOut();
    void pausedTurn();
    /// Whether a step loop stands on the step at which the run was paused.
    bool resumesAt(const ParserTree::Step& step);
    bool breaksTheRun() const;
    bool giveUpEdit();
    bool linkFrames();
    void anchorRun();
    ParserTree::Step stepAt(ParserTree::Position* anchor);
    void standAt(ParserTree::Step step);
    void refuseEdit(bool hasStep, long line);
    bool hasUnits() const override;
    void endCall(bool failed) override;
    void bindArguments(ParserTree::Function& function, ExecutionContext& frame,
                       UI_MacroVariant& call);

    SCL_Pointer<ParserTree> m_Tree;
    std::unique_ptr<TreeBuilder> m_Builder;
    ExecutionMode m_LastExecuting = emRun;
    bool m_BetweenSteps = false; // a callback runs while no node does
    unsigned m_Edits = 0;        // counts the calls of Reparse
    bool m_Editing = false;      // one of them is under way
    RunGuard* m_TopGuard = nullptr;
};
