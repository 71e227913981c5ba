// mcr words: what highlighting for an editor is made from.

#include "EditorCommands.h"
#include "Session.h"

#include <language/WordList.h>

#include <cstdio>
#include <string>

int PrintWords() {
    for (const ListedWord& row : ListMacroWords())
        std::printf("%s\t%s\n", std::string(row.kind).c_str(), std::string(row.word).c_str());
    for (const char* object : {"Console", "Err", "WScript"}) // what every macro under mcr has
        std::printf("object\t%s\n", object);
    return ExitDone;
}
