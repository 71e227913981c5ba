#include "interpreter/TreeDump.h"

#include <charconv>
#include <cstddef>
#include <algorithm>
#include <iterator>
#include <string_view>

#include "runtime/PrintItems.h"

namespace {

using Node = ParserTree::Node;
using Kind = ParserTree::Kind;

// In the order of ParserTree::Kind.
constexpr const char* kNames[] = {
    "Root",        "Function",      "FunctionEnd",   "Exit",      "LongValue",
    "DoubleValue", "StringValue",   "FunctionValue", "BoolValue", "VariantValList",
    "VariantList", "BinaryOp",      "UnaryOp",       "Subscript", "SubscriptList",
    "ArrRedecl",   "ArrRedeclList", "VarDecl",       "Dim",       "Redim",
    "Const",       "Return",        "Stop",          "ForStm",    "ForCond",
    "ForeachCond", "Next",          "DoLoop",        "WhileWend", "WhileCond",
    "Loop",        "With",          "WithContext",   "OpenFile",  "If",
    "IfCond",      "Select",        "SelectCase",    "Statement", "MissingValue",
    "ScriptExec",  "Object",        "ObjectExec",
};
static_assert(std::size(kNames) == static_cast<std::size_t>(Kind::ObjectExec) + 1);

constexpr const char* kStatements[] = {"call",      "let",   "set",   "print", "input",
                                       "randomize", "close", "width", "erase"};

const char* binaryName(int code) {
    constexpr const char* names[] = {"+",  "&", "-",  "*",  "/", "^",  "mod",
                                     "\\", "=", "<>", "<=", "<", ">=", ">"};
    if (code >= 0 && code < static_cast<int>(std::size(names)))
        return names[code];
    switch (code) {
    case 16:
        return "or";
    case 19:
        return "and";
    case 22:
        return "xor";
    case 25:
        return "imp";
    case 28:
        return "eqv";
    case 29:
        return "is";
    default:
        return "?";
    }
}

const char* unaryName(int code) {
    switch (code) {
    case 0:
        return "-";
    case 1:
        return "not";
    case 3:
        return "until";
    default:
        return "?";
    }
}

const char* exitName(int token) {
    switch (token) {
    case 279:
        return "for";
    case 262:
        return "do";
    case 273:
        return "sub";
    case 275:
        return "function";
    default:
        return "?";
    }
}

const char* itemName(MacroFunctionHandler handler) {
    if (handler == &PrintItemTab)
        return "Tab";
    if (handler == &PrintItemSpc)
        return "Spc";
    return handler == &PrintItemSemicolon ? ";" : "?";
}

void appendQuoted(std::string_view text, std::string& out) {
    constexpr char digits[] = "0123456789abcdef";
    out += '"';
    for (char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < ' ') {
            out += "\\x";
            out += digits[byte >> 4];
            out += digits[byte & 15];
        } else {
            out += c;
        }
    }
    out += '"';
}

template <class Number> void appendNumber(Number number, std::string& out) {
    char buffer[64];
    auto [end, error] = std::to_chars(std::begin(buffer), std::end(buffer), number);
    out.append(buffer, end);
}

template <class T, bool IsStatement = false> const T& data(const Node& node) {
    return static_cast<const ParserTree::NodeImpl<T, IsStatement>&>(node);
}

void appendProcedure(const ParserTree::Function& procedure, std::string& out) {
    constexpr const char* access[] = {"", "Public ", "Public Default ", "Private "};
    out += ' ';
    out += access[procedure.access & 3];
    out += procedure.isFunction ? "Function " : "Sub ";
    out += procedure.name.View();
    out += '(';
    const char* separator = "";
    for (const ParserTree::Argument& argument : procedure.arguments) {
        out += separator;
        out += argument.mode == 2 ? "ByVal " : "ByRef ";
        out += argument.name.View();
        out += argument.isArray ? "()" : "";
        separator = ", ";
    }
    out += ')';
    if (!procedure.description.IsEmpty()) {
        out += ' ';
        appendQuoted(procedure.description.View(), out);
    }
}

void appendObject(const ParserTree::Object& object, std::string& out) {
    out += object.hasDot ? " ." : " ";
    out += object.name.View();
    out += object.hasArguments ? "()" : "";
    out += object.isCall ? " call" : "";
}

void appendOpen(const ParserTree::OpenFile& open, std::string& out) {
    constexpr const char* modes[] = {" append", " binary", " input", " output", " random"};
    constexpr const char* accesses[] = {" read", " write", " readwrite"};
    constexpr const char* locks[] = {" shared", " lockread", " lockwrite", " lockreadwrite"};
    out += modes[open.mode];
    out += accesses[open.access];
    out += locks[open.lock];
}

void appendConst(const ParserTree::Const& constants, std::string& out) {
    constexpr const char* access[] = {"", " Public", "", " Private"};
    out += access[constants.access & 3];
    const char* separator = " ";
    for (const ParserTree::ConstItem& item : constants.items) {
        out += separator;
        out += item.name.View();
        separator = ", ";
    }
}

void appendWord(std::string_view text, std::string& out) {
    out += ' ';
    out += text;
}

// What a node of a value class says beside its kind; false for other classes.
bool appendValueData(const Node& node, std::string& out) {
    switch (node.GetKind()) {
    case Kind::LongValue:
        out += ' ';
        appendNumber(data<ParserTree::LongValue>(node).value, out);
        return true;
    case Kind::DoubleValue:
        out += ' ';
        appendNumber(data<ParserTree::DoubleValue>(node).value, out);
        return true;
    case Kind::StringValue:
        out += ' ';
        appendQuoted(data<ParserTree::StringValue>(node).value.View(), out);
        return true;
    case Kind::FunctionValue:
        appendWord(itemName(data<ParserTree::FunctionValue>(node).handler), out);
        return true;
    case Kind::BoolValue:
        appendWord(data<ParserTree::BoolValue>(node).value ? "true" : "false", out);
        return true;
    case Kind::BinaryOp:
        appendWord(binaryName(data<ParserTree::BinaryOp>(node).code), out);
        return true;
    case Kind::UnaryOp:
        appendWord(unaryName(data<ParserTree::UnaryOp>(node).code), out);
        return true;
    case Kind::Object:
        appendObject(data<ParserTree::Object>(node), out);
        return true;
    default:
        return false;
    }
}

void appendData(const Node& node, std::string& out) {
    if (appendValueData(node, out))
        return;
    switch (node.GetKind()) {
    case Kind::Function:
        appendProcedure(data<ParserTree::Function>(node), out);
        break;
    case Kind::Exit:
        appendWord(exitName(data<ParserTree::Exit, true>(node).token), out);
        break;
    case Kind::ArrRedecl:
        appendWord(data<ParserTree::ArrRedecl>(node).name.View(), out);
        break;
    case Kind::VarDecl:
        appendWord(data<ParserTree::VarDecl>(node).name.View(), out);
        break;
    case Kind::Redim:
        out += data<ParserTree::Redim, true>(node).preserve ? " preserve" : "";
        break;
    case Kind::Const:
        appendConst(data<ParserTree::Const, true>(node), out);
        break;
    case Kind::ForCond:
        appendWord(data<ParserTree::ForCond>(node).variable.View(), out);
        break;
    case Kind::ForeachCond:
        appendWord(data<ParserTree::ForeachCond>(node).variable.View(), out);
        break;
    case Kind::With:
        out += data<ParserTree::With, true>(node).isDialog ? " dialog" : "";
        break;
    case Kind::OpenFile:
        appendOpen(data<ParserTree::OpenFile, true>(node), out);
        break;
    case Kind::If:
        out += data<ParserTree::If, true>(node).hasElse ? " else" : "";
        break;
    case Kind::Select:
        out += data<ParserTree::Select, true>(node).hasElse ? " else" : "";
        break;
    case Kind::Statement: {
        const int code = data<ParserTree::Statement, true>(node).code;
        const bool known = code >= 0 && code < static_cast<int>(std::size(kStatements));
        appendWord(known ? kStatements[code] : "?", out);
        break;
    }
    default:
        break;
    }
}

void dumpProcedures(const ParserTree::ScriptUnit& unit, std::string& out) {
    for (const ParserTree::Position* line : unit.m_Lines) {
        if (!line)
            continue;
        for (const Node* node = line->firstNode; node; node = node->GetNextOnLine()) {
            if (node->Is(Kind::Function))
                DumpNode(*node, out);
        }
    }
}

/// Deep chains would need more blanks than text: beyond a point the level stands as a number.
void appendIndent(int level, std::string& out) {
    constexpr int kDeepest = 100;
    out.append(static_cast<std::size_t>(std::min(level, kDeepest)) * 2, ' ');
    if (level > kDeepest)
        out += '[' + std::to_string(level) + "] ";
}

} // namespace

void DumpNode(const Node& node, std::string& out, int level) {
    const Node* at = &node;
    for (;;) {
        appendIndent(level, out);
        out += kNames[static_cast<std::size_t>(at->GetKind())];
        appendData(*at, out);
        out += '\n';
        if (const Node* child = at->GetFirstChild()) {
            at = child;
            ++level;
            continue;
        }
        while (at != &node && !at->GetNextSibling()) {
            at = at->GetParent();
            --level;
        }
        if (at == &node)
            return;
        at = at->GetNextSibling();
    }
}

void DumpTree(const ParserTree& tree, std::string& out) {
    for (const auto& entry : tree.GetUnits()) {
        const ParserTree::ScriptUnit& unit = *entry.value;
        if (tree.GetUnits().GetCount() > 1) {
            out += "Script ";
            out += entry.key.View();
            out += '\n';
        }
        for (const Node* child = unit.m_Root.GetFirstChild(); child;
             child = child->GetNextSibling())
            DumpNode(*child, out);
        dumpProcedures(unit, out);
    }
}
