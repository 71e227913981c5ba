// What the file statements do with the streams of a processor.

#include <UI_MacroProcessor.h>

#include "runtime/FileTable.h"
#include "runtime/PrintItems.h"
#include "values/Failure.h"
#include "values/NumberText.h"

namespace {

/// Writes what a statement has printed, also when one of its values fails.
class PrintStatement {
public:
    explicit PrintStatement(TextFile& file) : m_File(file) {}
    PrintStatement(const PrintStatement&) = delete;
    PrintStatement& operator=(const PrintStatement&) = delete;
    ~PrintStatement() { m_File.EndPrint(); }

    void Print(const UI_MacroVariant& item, bool isFirst);
    void EndLine() {
        if (!m_IsSeparated)
            m_File.Put("\n");
    }

private:
    void putValue(const UI_MacroVariant& value);
    void putWord(const UI_MacroVariant& word);
    void putBlanks(__int64 count);
    void moveTo(__int64 place);

    TextFile& m_File;
    bool m_IsSeparated = true; // nothing that needs a line end stands before
};

void PrintStatement::Print(const UI_MacroVariant& item, bool isFirst) {
    const UI_MacroVariant* value = item.GetRVal();
    if (!value)
        return;
    if (value->IsMacroEval()) {
        if (!isFirst)
            EndLine();
        m_IsSeparated = false;
        return;
    }
    const bool isWord = value->GetType() == vvtFunction;
    if (!isFirst && !isWord)
        EndLine();
    m_IsSeparated = false;
    if (isWord)
        putWord(*value);
    else
        putValue(*value);
}

void PrintStatement::putValue(const UI_MacroVariant& value) {
    switch (value.GetType()) {
    case vvtEmpty:
        m_File.Put("\n");
        return;
    case vvtString:
        m_File.Put(value.GetStringVal().View());
        return;
    case vvtInteger:
        m_File.Put(MacroIntegerText(value.GetIntVal()).View());
        return;
    case vvtDouble:
        m_File.Put(static_cast<SYS_String>(value).View());
        return;
    case vvtBoolean:
        m_File.Put(value.GetIntVal() != 0 ? "True" : "False");
        return;
    case vvtObject:
    case vvtFunction:
    case vvtReference:
    case vvtArray:
    case vvtMissing:
    case vvtHandle:
    case vvtScript:
    case vvtUnknown:
        return; // no text
    }
}

void PrintStatement::putWord(const UI_MacroVariant& word) {
    const MacroFunctionHandler handler = word.GetFunctionHandler();
    const UI_MacroArray& arguments = word.Arrval();
    const bool hasCount = arguments.GetCount() > 0;
    const auto count = [&] { return static_cast<int>(arguments.GetData()[0]); };
    if (handler == &PrintItemTab) {
        if (hasCount)
            moveTo(count());
        else
            m_File.Put("\t");
    } else if (handler == &PrintItemSpc) {
        putBlanks(hasCount ? count() : 1);
    } else if (handler != &PrintItemSemicolon) {
        return; // a reference to a procedure
    }
    m_IsSeparated = true;
}

void PrintStatement::putBlanks(__int64 count) {
    if (count > MacroSupport::GetLimits().stringBytes)
        FailOutOfMemory();
    else
        m_File.PutBlanks(count);
}

void PrintStatement::moveTo(__int64 place) {
    const int width = m_File.GetWidth();
    if (width > 0 && place > width)
        place %= width;
    if (place != 0)
        --place;
    if (place < m_File.GetColumn())
        m_File.Put("\n");
    putBlanks(place - m_File.GetColumn());
}

} // namespace

FileTable& MacroSupport::GetFiles() const { return *m_Files; }

TextFile& MacroSupport::GetFile(int stream) { return *m_Files->Get(stream); }

void MacroSupport::CloseAllFiles() { m_Files->CloseAll(); }

void MacroSupport::OnOpen(const SYS_String& name, ParserTree::FileOpenMode mode, int stream,
                          ParserTree::FileAccessMode access, ParserTree::FileLockMode lock,
                          long recordLength) {
    if (recordLength > GetLimits().stringBytes)
        FailOutOfMemory();
    if (!m_Files->Get(stream)->Open(name, mode, access, lock, static_cast<int>(recordLength)))
        OnError(errCannotOpenFile, name);
}

void MacroSupport::OnClose(UI_MacroVariant* numbers, long count) {
    for (long i = 0; i < count; ++i)
        if (const auto file = m_Files->FindOpen(static_cast<int>(numbers[i])))
            file->Close();
}

void MacroSupport::OnPrint(UI_MacroVariant* items, long count, int stream) {
    const auto file = m_Files->FindOpen(stream);
    if (!file)
        return;
    if (!file->CanPrint())
        OnError(errFileMode, SYS_String());
    PrintStatement statement(*file);
    if (count <= 0)
        file->Put("\n");
    for (long i = 0; i < count; ++i)
        statement.Print(items[i], i == 0);
    statement.EndLine();
}

void MacroSupport::OnInput(UI_MacroVariant* targets, long count, int stream) {
    const auto file = m_Files->FindOpen(stream);
    if (!file)
        return;
    if (!file->CanInput())
        OnError(errFileMode, SYS_String());
    for (long i = 0; i < count; ++i) {
        SYS_String field;
        if (!file->ReadField(field))
            OnError(errCannotOpenFile, file->GetName());
        UI_MacroVariant* target =
            targets[i].GetType() == vvtReference ? targets[i].getRefVal() : nullptr;
        (target ? *target : targets[i]).Assign(field);
    }
}

void MacroSupport::OnWidth(int stream, long width) {
    if (const auto file = m_Files->FindOpen(stream))
        file->SetWidth(width);
}
