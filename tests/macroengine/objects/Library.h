#pragma once

// A small host for the tests of this folder: shelves that hold books.

#include "system/AssertRecorder.h"

#include <ClassDescriptors.h>
#include <MacroException.h>
#include <UI_MacroProcessor.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

/// The text of the error that an action raises; "no error" if it raises none.
inline std::string ErrorOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const MacroException& error) {
        return error.GetText().c_str();
    }
    return "no error";
}

inline std::string TextOf(const UI_MacroVariant& value) {
    return static_cast<SYS_String>(value).c_str();
}

/// Title is its default property; `Loan` is a method with one required and two optional values.
class Book : public MacroEval {
public:
    explicit Book(const char* title) : MacroEval("Book"), m_Title(title) {}

    using MacroEval::operator=;

    static cMacroAppClass* GetMacroClass() {
        static cMacroAppClass self("Book", MacroEval::GetMacroClass());
        static cMacroClassProperty<Book> title(self, "Title", TypeNameString, &Book::GetTitle,
                                               &Book::SetTitle, nullptr, true);
        static cMacroClassProperty<Book> pages(self, "Pages", TypeNameInt, &Book::GetPages);
        static cMacroClassMethod<Book> loan(self, "Loan", TypeNameString, &Book::Loan, false,
                                            cMacroArgument("reader", TypeNameString),
                                            cMacroArgument("days", TypeNameInt).opt(2));
        static cMacroClassMethod<Book> chapters(self, "Chapters", TypeNameVariant, &Book::Chapters);
        return &self;
    }
    const ScriptDebugger::iApplicationClass* GetMacroDescriptor() const override {
        return GetMacroClass();
    }
    UI_MacroVariant Evaluate(const char* name, UI_MacroVariant* args, int argc) override {
        UI_MacroVariant result;
        if (EvaluateMember(*this, name, args, argc, result))
            return result;
        return MacroEval::Evaluate(name, args, argc);
    }

    UI_MacroVariant GetTitle(int, UI_MacroVariant*) {
        ++titleReads;
        return m_Title;
    }
    UI_MacroVariant SetTitle(int argc, UI_MacroVariant* args) {
        m_Title = static_cast<SYS_String>(args[argc - 1]);
        return UI_MacroVariant();
    }
    UI_MacroVariant GetPages(int, UI_MacroVariant*) const { return 120; }
    UI_MacroVariant Loan(int argc, UI_MacroVariant* args) {
        SYS_String text;
        for (int i = 0; i < argc; ++i)
            text << (i ? "," : "") << static_cast<SYS_String>(args[i]);
        return text;
    }
    UI_MacroVariant Chapters(int, UI_MacroVariant*) {
        UI_MacroArray names(0, 1);
        names[0] = UI_MacroVariant("start");
        names[1] = UI_MacroVariant("end");
        return names;
    }

    int titleReads = 0;

private:
    SYS_String m_Title;
};

/// A book by inheritance, with a favourite page that takes two indexes, an object property, and
/// members that end the object or take it out of its parent.
class Atlas : public Book {
public:
    explicit Atlas(const char* title) : Book(title) {}

    using MacroEval::operator=;

    static cMacroAppClass* GetMacroClass() {
        static cMacroAppClass self("Atlas", Book::GetMacroClass());
        static cMacroClassProperty<Atlas> cell(
            self, "Cell", TypeNameInt, &Atlas::GetCell, &Atlas::SetCell, nullptr, false,
            cMacroArgument("row", TypeNameInt), cMacroArgument("column", TypeNameInt));
        static cMacroClassProperty<Atlas> next(self, "Next", "Book", &Atlas::GetNext, nullptr,
                                               &Atlas::SetNext);
        static cMacroClassProperty<Atlas> secret(self, "Secret", TypeNameString, nullptr,
                                                 &Atlas::SetTitle);
        static cMacroClassProperty<Atlas> gone(self, "Gone", TypeNameInt, &Atlas::GetGone);
        static cMacroClassMethod<Atlas> burn(self, "Burn", TypeNameInt, &Atlas::Burn);
        static cMacroClassMethod<Atlas> pages(self, "Pages", TypeNameString, &Atlas::Pages);
        return &self;
    }
    const ScriptDebugger::iApplicationClass* GetMacroDescriptor() const override {
        return GetMacroClass();
    }
    UI_MacroVariant Evaluate(const char* name, UI_MacroVariant* args, int argc) override {
        UI_MacroVariant result;
        if (EvaluateMember(*this, name, args, argc, result))
            return result;
        return MacroEval::Evaluate(name, args, argc);
    }

    UI_MacroVariant GetCell(int, UI_MacroVariant* args) {
        return static_cast<int>(args[0]) * 10 + static_cast<int>(args[1]) + cellOffset;
    }
    UI_MacroVariant SetCell(int argc, UI_MacroVariant* args) {
        cellCall.clear();
        for (int i = 0; i < argc; ++i)
            cellCall += TextOf(args[i]) + ";";
        return UI_MacroVariant();
    }
    UI_MacroVariant GetNext(int, UI_MacroVariant*) { return CopyOfNext(); }
    UI_MacroVariant SetNext(int, UI_MacroVariant* args) {
        next = static_cast<Book*>(args[0].getObject(false));
        return UI_MacroVariant();
    }
    UI_MacroVariant GetGone(int, UI_MacroVariant*) {
        RemoveFromMacroParent();
        return 7;
    }
    UI_MacroVariant Burn(int, UI_MacroVariant*) {
        delete this;
        return 8;
    }
    UI_MacroVariant Pages(int, UI_MacroVariant*) { return "maps"; }

    Book* next = nullptr;
    int cellOffset = 0;
    std::string cellCall;

private:
    UI_MacroVariant CopyOfNext() const {
        return UI_MacroVariant(static_cast<UI_MacroVariant*>(next));
    }
};
