#pragma once

// The tree that the parser builds and the run loop walks.
//
// Invariants:
// 1. The children of a node form a ring; a detached node has no parent and no siblings.
// 2. A node belongs to the line record it was made on; only ParserTree frees nodes, in a loop.
// 3. Nodes, line records and value cells never move.
// 4. A node operation never calls another node: it returns the step that comes next.

#include <MacroException.h>
#include <SCC_Map.h>
#include <SCL_Pointer.h>
#include <SCL_Vector.h>
#include <UI_MacroVariant.h>
#include <safeflag.h>

#include <cstddef>
#include <cstdint>

class ExecutionContext;
class FunctionTableItem;
class MacroParser;
class MacroSource;
struct MacroName;

class KEL_MCR_API ParserTree : public tRefCounted<iRefCounted> {
public:
    class Node;
    struct Position;
    struct ScriptUnit;
    struct Function;
    template <class T> class FrameResult;
    template <class T, bool StatementFlag> class NodeImpl;

    /// The run loop's place: the node to visit next, on the way down or on the way up.
    struct Step {
        Node* node = nullptr;
        bool ascending = false;
    };

    /// What a node is. One row per class; the order has no meaning.
    enum class Kind : std::uint8_t {
        Root,
        Function,
        FunctionEnd,
        Exit,
        LongValue,
        DoubleValue,
        StringValue,
        FunctionValue,
        BoolValue,
        VariantValList,
        VariantList,
        BinaryOp,
        UnaryOp,
        Subscript,
        SubscriptList,
        ArrRedecl,
        ArrRedeclList,
        VarDecl,
        Dim,
        Redim,
        Const,
        Return,
        Stop,
        ForStm,
        ForCond,
        ForeachCond,
        Next,
        DoLoop,
        WhileWend,
        WhileCond,
        Loop,
        With,
        WithContext,
        OpenFile,
        If,
        IfCond,
        Select,
        SelectCase,
        Statement,
        MissingValue,
        ScriptExec,
        Object,
        ObjectExec
    };

    enum FileOpenMode {
        FileAppend = 0,
        FileBinary = 1,
        FileInput = 2,
        FileOutput = 3,
        FileRandom = 4
    };
    enum FileAccessMode { AccessRead = 0, AccessWrite = 1, AccessReadWrite = 2 };
    enum FileLockMode { LockShared = 0, LockRead = 1, LockWrite = 2, LockReadWrite = 3 };

    // --- Value cells -------------------------------------------------------------------------

    /// The value that one activation of a procedure has computed in one node.
    struct Cell {
        UI_MacroVariant value;
        FrameResult<UI_MacroVariant>* owner = nullptr;
        Cell* below = nullptr; // the cell of the next outer activation, same node
        ExecutionContext* frame = nullptr;
        Cell* framePrevious = nullptr;
        Cell* frameNext = nullptr;

        static void* operator new(std::size_t size);
        static void operator delete(void* cell, std::size_t size);
    };

    // --- Nodes -------------------------------------------------------------------------------

    class KEL_MCR_API Node {
    public:
        Node() noexcept : Node(Kind::Root, false) {}
        Node(const Node&) = delete;
        Node& operator=(const Node&) = delete;
        virtual ~Node();

        /// Visits the node on the way down; the default goes to the first child, else leaves.
        /// Raises: any. Re-enters: host members, where the node reads or calls one.
        virtual Step Enter(MacroParser& processor);
        /// Visits it on the way up; the default goes to the next sibling, else to the parent.
        /// Raises: any. Re-enters: as Enter.
        virtual Step Leave(MacroParser& processor);
        /// Told to each open `With` after an edit of the running macro. Nothing by default.
        virtual void OnContextChanged(MacroParser& processor);
        /// Leaves the node because an `Exit` jumps out of it.
        virtual void Abandon(MacroParser& processor);
        /// Frees the node; its children stay with the tree, detached. On a root an assertion.
        virtual void Release(ParserTree& tree);
        virtual bool IsStatement() const;

        /// Take the child from where it stands and make it the last, or the first, of this node.
        /// Null and the node itself do nothing. Owner: not this node, but the tree.
        void AppendChild(Node* child);
        void PrependChild(Node* child);
        /// Moves the node to the place before a sibling; nothing if that has no parent.
        void MoveBefore(Node* sibling);
        /// Takes the node, with its children, out of its parent. Nothing for a detached one.
        void Unlink();

        Node* GetParent() const { return m_Parent; }
        Node* GetFirstChild() const { return m_FirstChild; }
        Node* GetLastChild() const { return m_FirstChild ? m_FirstChild->m_Previous : nullptr; }
        /// The sibling after this one, null for the last child.
        Node* GetNextSibling() const {
            return m_Parent && m_Next != m_Parent->m_FirstChild ? m_Next : nullptr;
        }
        /// The sibling before this one, null for the first child.
        Node* GetPreviousSibling() const {
            return m_Parent && this != m_Parent->m_FirstChild ? m_Previous : nullptr;
        }
        /// Owner: the tree. Null for roots and for nodes on the stack.
        Position* GetPosition() const { return m_Position; }
        /// What IsStatement says, without a call.
        bool IsStatementNode() const { return m_IsStatement; }
        /// The node made next on the same line.
        Node* GetNextOnLine() const { return m_NextOnLine; }
        Kind GetKind() const { return m_Kind; }
        bool Is(Kind kind) const { return m_Kind == kind; }
        /// The zero-based line of the node, or -1.
        long GetLine() const;
        /// The procedure around this node, or null.
        NodeImpl<Function, false>* GetFunction();
        /// The nearest ancestor of a kind, not looking beyond a procedure; or null.
        Node* FindEnclosing(Kind kind);
        /// The slots of a node that computes a value; null for other nodes.
        FrameResult<UI_MacroVariant>* GetResult() {
            return m_ResultOffset ? reinterpret_cast<FrameResult<UI_MacroVariant>*>(
                                        reinterpret_cast<char*>(this) + m_ResultOffset)
                                  : nullptr;
        }
        /// The step after this node, whatever the node would do itself.
        Step GetStepAfter() {
            if (!m_Parent)
                return {nullptr, false};
            return m_Next != m_Parent->m_FirstChild ? Step{m_Next, false} : Step{m_Parent, true};
        }

        static void* operator new(std::size_t size);
        static void operator delete(void* cell, std::size_t size);

    protected:
        Node(Kind kind, bool statement) noexcept : m_Kind(kind), m_IsStatement(statement) {}

    private:
        friend class ParserTree;
        template <class T, bool S> friend class NodeImpl;

        void insertChild(Node* child, bool atFront);

        Node* m_Parent = nullptr;
        Node* m_FirstChild = nullptr;
        Node* m_Next = nullptr;
        Node* m_Previous = nullptr;
        Position* m_Position = nullptr;
        Node* m_NextOnLine = nullptr;
        Kind m_Kind;
        bool m_IsStatement;
        std::uint8_t m_ResultOffset = 0;
    };

    /// All that stands on one source line.
    struct Position {
        Node* firstNode = nullptr; // in creation order, linked through the nodes
        Node* lastNode = nullptr;
        ScriptUnit* script = nullptr;
        Position* blockBegin = nullptr; // on a closing line: the line that opened the block
        Position* blockEnd = nullptr;   // on an opening line: the line that closes it
        Node* scope = nullptr;          // where statements attach after this line
        long line = -1;                 // zero-based; -1 awaits a re-parse
        bool isMarked = false;          // an update is going to release what stands on the line
        bool isRemoved = false;         // an update has taken the line out

        static void* operator new(std::size_t size);
        static void operator delete(void* cell, std::size_t size);
    };

    /// A line that says `Option Explicit`, and the block in which nothing may stand before it.
    struct OptionLine {
        const Position* line;
        const Node* block;
    };

    /// One parsed source.
    struct KEL_MCR_API ScriptUnit {
        ScriptUnit() = default;
        ScriptUnit(const ScriptUnit&) = delete;
        ScriptUnit& operator=(const ScriptUnit&) = delete;

        SCL_Pointer<MacroSource> source;
        SCL_Vector<Position*> m_FreePositions;
        SCL_Vector<Position*> m_Lines; // by line number; entries may be null
        Node m_Root;
        int m_Explicit = 0;
        SYS_String key;                     // the normalised path
        SCL_Vector<SYS_String> m_Variables; // module variables that the unit declares
        SCL_Vector<OptionLine> m_ExplicitLines;
        bool m_RestDropped = false; // an open string has ended the text
    };

    /// The value slots of a node: one cell for each activation that is computing it.
    template <class T> class FrameResult {
    public:
        FrameResult() = default;
        FrameResult(const FrameResult&) = delete;
        FrameResult& operator=(const FrameResult&) = delete;
        ~FrameResult() {
            if (m_Top)
                dropAll();
        }
        Cell* GetTop() const { return m_Top; }

    private:
        friend class ExecutionContext;
        friend class MacroSupport;
        KEL_MCR_API void dropAll();

        Cell* m_Top = nullptr;
    };

    /// A result that is no value of the language; held in the node, not per activation.
    template <class T> struct Result;

    // --- Data of the node classes -----------------------------------------------------------
    // A class that declares OnEnter, OnLeave or OnAbandon overrides that operation.

    struct LocalName {
        bool isConstant = false;
    };
    struct Argument {
        SYS_String name;
        long mode = 1; // 1 by reference, 2 by value
        bool isArray = false;
        const MacroName* interned = nullptr;
        unsigned place = 0; // in the layout
    };
    struct KEL_MCR_API Function {
        static constexpr Kind kKind = Kind::Function;
        SYS_String name;
        SYS_String description;
        int isFunction = 1;
        int access = 0; // 0 none, 1 Public, 2 Public Default, 3 Private
        SCC_Map<SYS_StrNoCase, LocalName> locals;
        SCL_Vector<Argument> arguments;
        SCL_Vector<const MacroName*> layout; // the variables of a call, in order of the locals
        unsigned layoutState = 0;            // state of the locals when the layout was made
        const MacroName* interned = nullptr;
        FunctionTableItem* slot = nullptr;
        Step OnLeave(Node& node, MacroParser& processor);
    };
    struct FunctionEnd {
        static constexpr Kind kKind = Kind::FunctionEnd;
    };
    struct KEL_MCR_API Exit {
        static constexpr Kind kKind = Kind::Exit;
        int token = -1; // of the word behind Exit
        Step OnEnter(Node& node, MacroParser& processor);
    };
    using ValueSlots = FrameResult<UI_MacroVariant>;
    struct KEL_MCR_API LongValue : ValueSlots {
        static constexpr Kind kKind = Kind::LongValue;
        __int64 value = 0;
        Step OnEnter(Node& node, MacroParser& processor);
    };
    struct KEL_MCR_API DoubleValue : ValueSlots {
        static constexpr Kind kKind = Kind::DoubleValue;
        double value = 0;
        Step OnEnter(Node& node, MacroParser& processor);
    };
    struct KEL_MCR_API StringValue : ValueSlots {
        static constexpr Kind kKind = Kind::StringValue;
        SYS_String value;
        Step OnEnter(Node& node, MacroParser& processor);
    };
    struct KEL_MCR_API FunctionValue : ValueSlots {
        static constexpr Kind kKind = Kind::FunctionValue;
        MacroFunctionHandler handler = nullptr;
        Step OnEnter(Node& node, MacroParser& processor);
    };
    struct KEL_MCR_API BoolValue : ValueSlots {
        static constexpr Kind kKind = Kind::BoolValue;
        bool value = false;
        Step OnEnter(Node& node, MacroParser& processor);
    };
    struct KEL_MCR_API VariantValList : ValueSlots {
        static constexpr Kind kKind = Kind::VariantValList;
        Step OnLeave(Node& node, MacroParser& processor);
    };
    struct KEL_MCR_API VariantList : ValueSlots {
        static constexpr Kind kKind = Kind::VariantList;
        Step OnLeave(Node& node, MacroParser& processor);
    };
    struct KEL_MCR_API BinaryOp : ValueSlots {
        static constexpr Kind kKind = Kind::BinaryOp;
        int code = -1;
        Step OnEnter(Node& node, MacroParser& processor);
        Step OnLeave(Node& node, MacroParser& processor);
    };
    struct KEL_MCR_API UnaryOp : ValueSlots {
        static constexpr Kind kKind = Kind::UnaryOp;
        int code = -1;
        Step OnLeave(Node& node, MacroParser& processor);
    };
    struct KEL_MCR_API ArrRedecl {
        static constexpr Kind kKind = Kind::ArrRedecl;
        SYS_String name;
        SCC_Array<_ArraySubscript> subscripts;
        Step OnLeave(Node& node, MacroParser& processor);
    };
    struct KEL_MCR_API VarDecl {
        static constexpr Kind kKind = Kind::VarDecl;
        SYS_String name;
        NodeImpl<Function, false>* procedure = nullptr; // that declares it; null in module code
        Step OnLeave(Node& node, MacroParser& processor);
    };
    struct Dim {
        static constexpr Kind kKind = Kind::Dim;
    };
    struct KEL_MCR_API Redim {
        static constexpr Kind kKind = Kind::Redim;
        bool preserve = false;
        Step OnLeave(Node& node, MacroParser& processor);
    };
    struct ConstItem {
        SYS_String name;
        Node* value = nullptr;
    };
    struct KEL_MCR_API Const {
        static constexpr Kind kKind = Kind::Const;
        int access = 0;
        SCL_Vector<ConstItem> items;
        NodeImpl<Function, false>* procedure = nullptr;
        Step OnLeave(Node& node, MacroParser& processor);
    };
    struct Return {
        static constexpr Kind kKind = Kind::Return;
    };
    struct KEL_MCR_API Stop {
        static constexpr Kind kKind = Kind::Stop;
        Step OnEnter(Node& node, MacroParser& processor);
    };
    struct ForStm {
        static constexpr Kind kKind = Kind::ForStm;
    };
    struct KEL_MCR_API LoopVariable : ValueSlots {
        SYS_String variable;
        const MacroName* interned = nullptr;
        unsigned cachedIndex = 0;
    };
    struct KEL_MCR_API ForCond : LoopVariable {
        static constexpr Kind kKind = Kind::ForCond;
        Step OnEnter(Node& node, MacroParser& processor);
        Step OnLeave(Node& node, MacroParser& processor);
    };
    struct KEL_MCR_API ForeachCond : LoopVariable {
        static constexpr Kind kKind = Kind::ForeachCond;
        Step OnEnter(Node& node, MacroParser& processor);
        Step OnLeave(Node& node, MacroParser& processor);
    };
    struct KEL_MCR_API Next {
        static constexpr Kind kKind = Kind::Next;
        Step OnEnter(Node& node, MacroParser& processor);
    };
    struct KEL_MCR_API While {
        Step OnLeave(Node& node, MacroParser& processor);
    };
    struct KEL_MCR_API DoLoop : While {
        static constexpr Kind kKind = Kind::DoLoop;
        void OnAbandon(Node& node, MacroParser& processor);
    };
    struct KEL_MCR_API WhileWend : While {
        static constexpr Kind kKind = Kind::WhileWend;
    };
    struct KEL_MCR_API WhileCond {
        static constexpr Kind kKind = Kind::WhileCond;
        Step OnLeave(Node& node, MacroParser& processor);
    };
    struct KEL_MCR_API Loop {
        static constexpr Kind kKind = Kind::Loop;
        Step OnEnter(Node& node, MacroParser& processor);
    };
    struct KEL_MCR_API With {
        static constexpr Kind kKind = Kind::With;
        cSafeCounter nestedRuns;
        bool isDialog = false;
        Step OnEnter(Node& node, MacroParser& processor);
        Step OnLeave(Node& node, MacroParser& processor);
        void OnAbandon(Node& node, MacroParser& processor);
        void OnChanged(Node& node, MacroParser& processor);
    };
    struct KEL_MCR_API WithContext {
        static constexpr Kind kKind = Kind::WithContext;
        Step OnEnter(Node& node, MacroParser& processor);
    };
    struct KEL_MCR_API OpenFile {
        static constexpr Kind kKind = Kind::OpenFile;
        FileOpenMode mode = FileRandom;
        FileAccessMode access = AccessReadWrite;
        FileLockMode lock = LockShared;
        Step OnLeave(Node& node, MacroParser& processor);
    };
    struct If {
        static constexpr Kind kKind = Kind::If;
        bool hasElse = false; // while parsing: an Else was seen
    };
    struct KEL_MCR_API IfCond {
        static constexpr Kind kKind = Kind::IfCond;
        Step OnEnter(Node& node, MacroParser& processor);
        Step OnLeave(Node& node, MacroParser& processor);
    };
    struct KEL_MCR_API Select {
        static constexpr Kind kKind = Kind::Select;
        bool hasElse = false; // while parsing: a Case Else was seen
        Step OnLeave(Node& node, MacroParser& processor);
    };
    struct KEL_MCR_API SelectCase {
        static constexpr Kind kKind = Kind::SelectCase;
        Step OnEnter(Node& node, MacroParser& processor);
        Step OnLeave(Node& node, MacroParser& processor);
    };
    struct KEL_MCR_API Statement {
        static constexpr Kind kKind = Kind::Statement;
        static constexpr int kLet = 1;
        int code = -1;
        Step OnEnter(Node& node, MacroParser& processor);
        Step OnLeave(Node& node, MacroParser& processor);
    };
    struct KEL_MCR_API MissingValue : ValueSlots {
        static constexpr Kind kKind = Kind::MissingValue;
        Step OnEnter(Node& node, MacroParser& processor);
    };
    struct KEL_MCR_API ScriptExec {
        static constexpr Kind kKind = Kind::ScriptExec;
        Step OnEnter(Node& node, MacroParser& processor);
        Step OnLeave(Node& node, MacroParser& processor);
    };
    struct KEL_MCR_API Object : ValueSlots {
        static constexpr Kind kKind = Kind::Object;
        SYS_String name; // as written
        const MacroName* interned = nullptr;
        bool hasDot = false;
        bool hasArguments = false;
        bool isCall = false;
        // Cache of what the name means, while the name tables keep the state it was filled in.
        unsigned cachedNames = 0;
        unsigned cachedIndex = 0;     // place of the variable in its frame
        bool isOwnName = false;       // no object or built-in has the name
        bool isPlainVariable = false; // no procedure either, and it is neither called nor indexed
        const FunctionTableItem* procedure = nullptr; // of that name, a variable may hide it
        MacroFunctionHandler builtIn = nullptr;       // of that name, and no object hides it
        Step OnLeave(Node& node, MacroParser& processor);
        /// Whether the name can mean nothing but a variable, for now.
        bool IsOwnVariable(Node& node, MacroParser& processor);

    private:
        Step resolveOwnName(Node& node, MacroParser& processor, Cell* list);
        void learn(Node& node, MacroParser& processor);
    };
    struct KEL_MCR_API ObjectExec : ValueSlots {
        static constexpr Kind kKind = Kind::ObjectExec;
        Step OnEnter(Node& node, MacroParser& processor);
        Step OnLeave(Node& node, MacroParser& processor);
    };

    // --- The tree ---------------------------------------------------------------------------

    explicit ParserTree(MacroParser& processor);
    ParserTree(const ParserTree&) = delete;
    ParserTree& operator=(const ParserTree&) = delete;
    ~ParserTree() override;

    /// Frees every unit, node and record, and forgets the module names.
    void Clear();
    /// Makes a node on the current line.
    template <class N> N* Create() { return CreateAt<N>(currentLine()); }
    /// Makes a node on the line of another one.
    template <class N> N* CreateAt(Position* position) {
        N* node = new N;
        if (position)
            attachToLine(node, position);
        return node;
    }
    /// The same for a node that a run adds for a while: in front, where it is found at once.
    template <class N> N* CreateInFront(Position* position) {
        N* node = new N;
        if (position)
            attachInFront(node, position);
        return node;
    }
    /// The record of a line of the current unit, made if needed; adds the node to it.
    Position* GetOrCreatePosition(Node* node, long line);

    /// The unit of a key, made if it is new.
    ScriptUnit* GetUnit(const SYS_String& key);
    ScriptUnit* FindUnit(const SYS_String& key);
    /// Frees one unit with all its nodes.
    void RemoveUnit(ScriptUnit* unit);
    ScriptUnit* GetCurrentUnit() const { return m_Script; }
    /// Makes a unit current: its source and its options become the processor's.
    void SetCurrentUnit(ScriptUnit* unit);
    SCC_Map<SYS_String, ScriptUnit*>& GetUnits() { return m_Scripts; }
    const SCC_Map<SYS_String, ScriptUnit*>& GetUnits() const { return m_Scripts; }

    /// Hands the tree to another processor, which an evaluation lends its own state.
    void SetProcessor(MacroParser& processor) { m_Processor = &processor; }

    void OpenBlock(Node* node);
    void CloseBlock();
    /// Ends a parse of the current unit.
    void FinishParse();
    /// Begins an edit of the current unit. The procedures stay known.
    void BeginUpdate();
    /// Frees all nodes of a line and forgets its blocks; the record then awaits a re-parse.
    void ReleaseLine(Position& position);
    /// Thrown where a piece of text would close a block that stands around it.
    struct BlockIsOutside {};

    // State of a parse.
    Node* m_Parent = nullptr; // where the next statement attaches; null outside parsing
    NodeImpl<Function, false>* m_Function = nullptr; // the procedure being parsed
    Position* m_Anchor = nullptr;                    // where the run stood when a re-parse began
    Step m_AnchorStep;       // the step that a re-parse which failed has left
    Node* m_Floor = nullptr; // the block around the lines that are parsed again
    bool m_Updating = false; // declarations are made under a run
    bool m_Pending = false;  // lines await a re-parse
    SCC_Map<SYS_StrNoCase, LocalName> m_GlobalNames; // module names, with their constant flag

private:
    friend class Node;
    template <class T, bool S> friend class NodeImpl;

    Position* currentLine();
    static void attachToLine(Node* node, Position* position);
    static void detachFromLine(Node* node);
    static void freeNodesOf(Position* position);
    static void attachInFront(Node* node, Position* position);
    static void freeUnit(ScriptUnit* unit);
    void freeUnits();
    void destroy(Node* node);

    MacroParser* m_Processor;
    SCC_Map<SYS_String, ScriptUnit*> m_Scripts;
    ScriptUnit* m_Script = nullptr;
};

template <> struct KEL_MCR_API ParserTree::Result<_ArraySubscript> {
    static constexpr ParserTree::Kind kKind = ParserTree::Kind::Subscript;
    _ArraySubscript value;
    ParserTree::Step OnLeave(ParserTree::Node& node, MacroParser& processor);
};
template <> struct KEL_MCR_API ParserTree::Result<SCC_Array<_ArraySubscript>> {
    static constexpr ParserTree::Kind kKind = ParserTree::Kind::SubscriptList;
    SCC_Array<_ArraySubscript> value;
    ParserTree::Step OnLeave(ParserTree::Node& node, MacroParser& processor);
};
template <> struct KEL_MCR_API ParserTree::Result<SCC_Array<_ArrayDecl>> {
    static constexpr ParserTree::Kind kKind = ParserTree::Kind::ArrRedeclList;
    SCC_Array<_ArrayDecl> value;
    ParserTree::Step OnLeave(ParserTree::Node& node, MacroParser& processor);
};

/// The concrete class of every node: links, data, and the operations that the data declares.
template <class T, bool StatementFlag>
class ParserTree::NodeImpl final : public ParserTree::Node, public T {
public:
    NodeImpl() noexcept : Node(T::kKind, StatementFlag) {
        if constexpr (requires(T & data) { data.GetTop(); }) {
            auto* slots = static_cast<ValueSlots*>(this);
            m_ResultOffset = static_cast<std::uint8_t>(
                reinterpret_cast<char*>(slots) - reinterpret_cast<char*>(static_cast<Node*>(this)));
        }
    }

    Step Enter(MacroParser& processor) override {
        if constexpr (requires { &T::OnEnter; })
            return T::OnEnter(*this, processor);
        else if (Node* child = GetFirstChild())
            return {child, false};
        else
            return NodeImpl::Leave(processor);
    }
    Step Leave(MacroParser& processor) override {
        if constexpr (requires { &T::OnLeave; })
            return T::OnLeave(*this, processor);
        else
            return GetStepAfter();
    }
    void Abandon(MacroParser& processor) override {
        if constexpr (requires { &T::OnAbandon; })
            T::OnAbandon(*this, processor);
        else
            Node::Abandon(processor);
    }
    void OnContextChanged(MacroParser& processor) override {
        if constexpr (requires { &T::OnChanged; })
            T::OnChanged(*this, processor);
    }
    bool IsStatement() const override { return StatementFlag; }
};
