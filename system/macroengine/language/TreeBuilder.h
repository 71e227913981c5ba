#pragma once

// The actions of the grammar: one operation for each rule that builds something. Statements
// attach to the open block when they are made; value nodes stay loose until an operation takes
// them. Raises: any parse error.

#include <UI_ParserTree.h>

#include "language/Scanner.h"

class TreeBuilder {
public:
    explicit TreeBuilder(MacroParser& processor) : m_Processor(processor) {}

    /// A text begins: places in an earlier one mean nothing any more.
    void BeginText() { m_IfClosedAt = nullptr; }
    TreeBuilder(const TreeBuilder&) = delete;
    TreeBuilder& operator=(const TreeBuilder&) = delete;

    // Services of the parser.
    int NextToken(MacroToken& value);
    void SyntaxError();
    /// The error number for a failing token, by what block is open.
    MacroERR_Code GetSyntaxErrorCode() const;
    /// The error number for a block that is open at the end of the text.
    static MacroERR_Code GetOpenBlockCode(const ParserTree::Node& block);

    // Values.
    MacroToken Long(long long value);
    MacroToken Double(double value);
    MacroToken String(const MacroToken& text);
    MacroToken Bool(bool value);
    MacroToken Missing();
    MacroToken Unary(int code, const MacroToken& operand);
    MacroToken Binary(int code, const MacroToken& left, const MacroToken& right);

    // Names and calls.
    MacroToken Object(const MacroToken& name, bool hasDot);
    MacroToken Member(const MacroToken& prefix, const MacroToken& name);
    MacroToken Apply(const MacroToken& target, const MacroToken& arguments);
    MacroToken Exec(const MacroToken& object);

    // Lists.
    MacroToken List();
    MacroToken List(const MacroToken& first);
    MacroToken Append(const MacroToken& list, const MacroToken& item);
    MacroToken Prepend(const MacroToken& list, const MacroToken& item);
    MacroToken Tab();
    MacroToken Tab(const MacroToken& count);
    MacroToken Spc();
    MacroToken Spc(const MacroToken& count);
    MacroToken Semicolon();

    // Simple statements.
    void EndStatement();
    void ObjectStatement(const MacroToken& object);
    void ObjectStatement(const MacroToken& object, const MacroToken& arguments);
    void Call(const MacroToken& object);
    void Option(const MacroToken& name);
    void Let(const MacroToken& target, const MacroToken& value);
    void Set(const MacroToken& target, const MacroToken& value);
    void Print(const MacroToken& items, const MacroToken& stream);
    void Input(const MacroToken& targets, const MacroToken& stream);
    void Randomize();
    void Randomize(const MacroToken& seed);
    void Close(const MacroToken& streams);
    void Width(const MacroToken& stream, const MacroToken& width);
    void Erase(const MacroToken& object);
    void Open(const MacroToken& name, const MacroToken& mode, const MacroToken& access,
              const MacroToken& lock, const MacroToken& stream, const MacroToken& recordLength);
    MacroToken RecordLength(const MacroToken& word, const MacroToken& value);

    // Blocks.
    void OpenIf(const MacroToken& condition);
    void ElseIf(const MacroToken& condition);
    void Else();
    void EndLineIf();
    void EndIf();
    void OpenSelect(const MacroToken& value);
    void Case(const MacroToken& values);
    void CaseElse();
    void EndSelect();
    void OpenFor(const MacroToken& name, const MacroToken& start, const MacroToken& bound,
                 const MacroToken& step);
    void OpenForEach(const MacroToken& name, const MacroToken& object);
    void Next();
    void NextNamed(const MacroToken& name);
    void OpenDo();
    void OpenDoWhile(const MacroToken& condition);
    void OpenDoUntil(const MacroToken& condition);
    void Loop();
    void LoopWhile(const MacroToken& condition);
    void LoopUntil(const MacroToken& condition);
    void OpenWhile(const MacroToken& condition);
    void Wend();
    void OpenWith(const MacroToken& object, bool isDialog);
    void EndWith(bool isDialog);
    void ExitFor();
    void ExitDo();
    void ExitSub();
    void ExitFunction();

    // Procedures and declarations.
    void OpenProcedure(const MacroToken& name, int access, bool isFunction);
    void Argument(const MacroToken& name, int mode, bool isArray);
    void CloseProcedure(bool isFunction);
    void OpenDim();
    void CloseDim();
    void Variable(const MacroToken& name);
    void Array(const MacroToken& name, const MacroToken& subscripts);
    MacroToken Redeclaration(const MacroToken& name, const MacroToken& subscripts);
    MacroToken RedeclList(const MacroToken& first);
    void Redim(const MacroToken& list, bool preserve);
    MacroToken SubscriptList();
    MacroToken SubscriptList(const MacroToken& first);
    MacroToken Subscript(const MacroToken& upper);
    MacroToken Subscript(const MacroToken& lower, const MacroToken& upper);
    void OpenConst(int access);
    void ConstItem(const MacroToken& name, const MacroToken& value);
    void CloseConst();

private:
    using Node = ParserTree::Node;
    using Kind = ParserTree::Kind;

    ParserTree& tree() const;
    [[noreturn]] void fail(MacroERR_Code code) const;
    [[noreturn]] void fail(const char* text) const;
    /// The node of a value. Raises: `code` if there is none.
    Node* operand(const MacroToken& value, MacroERR_Code code = errInternal) const;
    static MacroToken tokenOf(Node* node);

    template <class T> ParserTree::NodeImpl<T, false>* makeValue();
    template <class T> ParserTree::NodeImpl<T, true>* makeStatement();
    /// The open block if it is of that class, else null.
    template <class T, bool IsStatement> ParserTree::NodeImpl<T, IsStatement>* openBlock() const;

    Node* statement(int code, Node* first, Node* second = nullptr);
    Node* makeExec(Node* object);
    Node* makeUnary(int code, Node* operand);
    MacroToken printItem(MacroFunctionHandler handler, Node* count);
    void openDoLoop(Node* condition);
    void closeDoLoop(Node* condition);
    void exitBlock(int token, Kind kind, MacroERR_Code code);
    void exitProcedure(int token, bool isFunction, MacroERR_Code code);
    bool closeBranch();

    MacroParser& m_Processor;
    const char* m_IfClosedAt = nullptr; // the token that ended a line If with an Else
};

/// Parses the text that the builder's processor scans; 0 on success.
int ParseMacroText(TreeBuilder& build);
/// Switches the parser's trace, which goes to the standard error stream.
void TraceMacroGrammar(bool on);
