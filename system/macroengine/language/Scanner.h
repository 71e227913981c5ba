#pragma once

// Turns macro text into tokens, in place. The parser and the editor's tokenizer drive it.

#include <SYS_String.h>
#include <UI_ParserTree.h>

#include <string>
#include <string_view>

#include "language/Dictionary.h"

/// The value of a token or of a grammar symbol. Trivially copyable, so that an exception may
/// pass through the parser.
struct MacroToken {
    const DictionaryEntry* entry = nullptr;
    union {
        long long integer = 0;
        double real;
        ParserTree::Node* node;
        int flag;
    };
};

class MacroScanner {
public:
    /// Where a scan stands. Swapped as a whole around a nested parse.
    struct State {
        const char** cursor = nullptr;     // the read pointer of whoever drives the scanner
        const char* bufferStart = nullptr; // of the text that is being read
        const char* tokenStart = nullptr;  // of the last token, behind the white space
        SYS_String* text = nullptr;        // the buffer, if the parser may put the next line there
        SYS_String tokenText;
        SYS_String commentText;
        char commentLeader = 0;
        bool afterDot = false;
        bool restDropped = false;    // nothing more is read
        bool stringIsOpen = false;   // a string without its end is why
        bool continuesText = false;  // more lines come from the source
        bool movesSource = false;    // the lines of the text are lines of the source
        bool expressionForm = false; // the text is the value of `LET name =`
        int prefixLeft = 0;          // tokens of that prefix still to come
        int currentLine = 0;
        int tokenLine = 0;
        int lineOffset = 0;
        int lastToken = 0;
        int previousToken = 0;
    };

    MacroScanner() = default;
    MacroScanner(const MacroScanner&) = delete;
    MacroScanner& operator=(const MacroScanner&) = delete;

    /// The next token: 0 at the end, a character, a token number, or one of the two negative
    /// ones. Raises: never.
    int ScanToken();
    /// Begins a text at the pointer, keeping the line counter.
    void SetText(const char** cursor);
    /// Goes on with the next line of the same text, where the cursor stands now.
    void BeginLine();
    /// Back to an unused scanner; forgets all texts.
    void Reset();

    const MacroToken& GetValue() const { return m_Value; }
    void SetValue(const MacroToken& value) { m_Value = value; }
    const SYS_String& Intern(const SYS_String& text) {
        return m_Dictionary.FindOrInsert(text.View()).text;
    }
    MacroDictionary& GetDictionary() { return m_Dictionary; }

    State& GetState() { return m_State; }
    const State& GetState() const { return m_State; }
    void SwapState(State& other) { std::swap(m_State, other); }

    const SYS_String& GetTokenText() const { return m_State.tokenText; }
    const SYS_String& GetCommentText() const { return m_State.commentText; }
    void ClearCommentText() { m_State.commentText.Clear(); }
    char GetCommentLeader() const { return m_State.commentLeader; }
    int GetCurrentLine() const { return m_State.currentLine; }
    void SetCurrentLine(int line) { m_State.currentLine = line; }
    int GetTokenLine() const { return m_State.tokenLine; }
    int GetLineOffset() const { return m_State.lineOffset; }
    int GetLastToken() const { return m_State.lastToken; }
    void SetLastToken(int token) {
        m_State.previousToken = m_State.lastToken;
        m_State.lastToken = token;
    }
    /// The line of the text in which the last token begins, without its line end. `linesEndTexts`:
    /// the text is one line, to which the end behind its line end belongs.
    SYS_String GetFailingLine(bool linesEndTexts) const;

    /// Writes the place of every token to the debugger output.
    static void SetTrace(bool on) { s_Trace = on; }

private:
    int scan(const char*& p, const char* start, bool afterDot);
    int newLine(const char*& p);
    int quoteComment(const char*& p);
    int remComment(const char*& p);
    int stringLiteral(const char*& p);
    int number(const char*& p);
    void integerValue(bool hexadecimal);
    void realValue();
    void applyUnit(std::string_view suffix, int token);
    int word(std::string_view text, bool afterDot);
    int punctuation(const char*& p, const char* start, bool spaceBefore);
    int finish(int token, const DictionaryEntry& entry, const char* p, const char* start);
    void trace() const;

    static inline bool s_Trace = false;

    State m_State;
    MacroToken m_Value;
    MacroDictionary m_Dictionary;
    std::string m_Buffer; // the text of a literal that differs from its source
};
