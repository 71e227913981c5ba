// Classes of the host as macros and as editors see them.

#include "macroengine/objects/Library.h"

#include <UI_Macro.h>
#include <gtest/gtest.h>

namespace {

class ClassDescriptorsTest : public ::testing::Test {
protected:
    MacroParser processor{true};
    Book book{"Emma"};
    Atlas atlas{"World"};
};

UI_MacroVariant call(MacroEval& object, const char* name, std::vector<UI_MacroVariant> args = {}) {
    return object.Evaluate(name, args.empty() ? nullptr : args.data(),
                           static_cast<int>(args.size()));
}

TEST_F(ClassDescriptorsTest, ListsWhatAClassDeclares) {
    const ScriptDebugger::iApplicationClass& c = *book.GetMacroDescriptor();
    EXPECT_STREQ(c.GetName(), "Book");
    EXPECT_EQ(c.GetParentClass(), MacroEval::GetMacroClass());
    ASSERT_EQ(c.GetMethodsCount(), 2u);
    ASSERT_EQ(c.GetPropertiesCount(), 2u);
    EXPECT_EQ(c.GetMethod(2), nullptr);
    EXPECT_EQ(c.GetProperty(2), nullptr);
    EXPECT_STREQ(c.GetDefaultPropertyOrMethod()->GetName(), "Title");
    EXPECT_FALSE(c.GetProperty(0)->IsReadOnly());
    EXPECT_TRUE(c.GetProperty(1)->IsReadOnly());

    const ScriptDebugger::iMethod& loan = *c.GetMethod(0);
    EXPECT_STREQ(loan.GetResultType(), "String");
    EXPECT_EQ(loan.GetRequiredArguments(), 1u);
    EXPECT_EQ(loan.GetOptionalArguments(), 1u);
    EXPECT_EQ(loan.GetRequiredPlaces(), 1u);
    EXPECT_EQ(loan.GetOptionalPlaces(), 2u);
    ASSERT_NE(loan.GetArgument(1), nullptr);
    EXPECT_STREQ(loan.GetArgument(1)->GetName(), "days");
    EXPECT_EQ(loan.GetArgument(1)->GetCount(), 2u);
    EXPECT_TRUE(loan.GetArgument(1)->IsOptional());
    EXPECT_FALSE(loan.GetArgument(0)->IsOptional());
    EXPECT_EQ(loan.GetArgument(2), nullptr);

    const ScriptDebugger::iApplicationClass& root = *MacroEval::GetMacroClass();
    EXPECT_STREQ(root.GetName(), "MacroEval");
    ASSERT_EQ(root.GetPropertiesCount(), 1u);
    EXPECT_STREQ(root.GetProperty(0)->GetName(), "MacroName");
}

TEST_F(ClassDescriptorsTest, AllClassesAreListedWhileTheyLive) {
    cMacroAppClasses& all = cMacroAppClasses::Instance();
    EXPECT_STREQ(all.GetName(), "Macro Engine");
    const unsigned before = all.GetApplicationClassesCount();
    {
        cMacroAppClass hidden("Hidden", nullptr);
        hidden.Hide();
        ASSERT_EQ(all.GetApplicationClassesCount(), before + 1);
        EXPECT_EQ(all.GetApplicationClass(before), &hidden);
        EXPECT_TRUE(all.GetApplicationClass(before)->IsHidden());
    }
    EXPECT_EQ(all.GetApplicationClassesCount(), before);
    EXPECT_EQ(all.GetApplicationClass(before), nullptr);
}

TEST_F(ClassDescriptorsTest, MethodsTakeTheDeclaredNumberOfValues) {
    EXPECT_EQ(TextOf(call(book, "Loan", {"Ann"})), "Ann");
    EXPECT_EQ(TextOf(call(book, "lOAN", {"Ann", 3, 4})), "Ann,3,4");
    EXPECT_EQ(ErrorOf([&] { call(book, "Loan"); }), "Error: Incorrect function argument(s): Loan");
    EXPECT_EQ(ErrorOf([&] {
                  call(book, "Loan", {1, 2, 3, 4});
              }),
              "Error: Incorrect function argument(s): Loan");
    EXPECT_EQ(ErrorOf([&] { call(book, "Sell", {1}); }), "Error: Member not found: Sell");
}

TEST_F(ClassDescriptorsTest, MembersWithoutArgumentsApplyThemToTheirResult) {
    EXPECT_EQ(TextOf(call(book, "Chapters", {1})), "end");
    EXPECT_EQ(ErrorOf([&] { call(book, "Pages", {1}); }),
              "Error: Incorrect function argument(s): Pages");
    EXPECT_EQ(ErrorOf([&] { call(book, "Chapters", {2}); }).rfind("Error: Array index is out", 0),
              0u);
}

TEST_F(ClassDescriptorsTest, PropertiesAreReadWhenTheirValueIsNeeded) {
    UI_MacroVariant title = call(book, "title");
    EXPECT_EQ(book.titleReads, 0);
    EXPECT_EQ(TextOf(title), "Emma");
    EXPECT_EQ(book.titleReads, 1);
    title.InitRVal();
    EXPECT_EQ(book.titleReads, 2);
    EXPECT_EQ(title.GetRVal()->GetType(), vvtString);
    EXPECT_EQ(book.titleReads, 2);
    title.Assign("Persuasion");
    EXPECT_EQ(book.titleReads, 2);
    EXPECT_EQ(TextOf(call(book, "Title")), "Persuasion");
    EXPECT_EQ(TextOf(title), "Persuasion");
    EXPECT_EQ(static_cast<int>(call(book, "Pages")), 120);
}

TEST_F(ClassDescriptorsTest, SettersGetTheArgumentsAndThenTheValue) {
    UI_MacroVariant cell = call(atlas, "Cell", {4, 2});
    EXPECT_EQ(static_cast<int>(cell), 42);
    atlas.cellOffset = 100;
    EXPECT_EQ(static_cast<int>(call(atlas, "Cell", {4, 2})), 142);
    cell.Assign(9);
    EXPECT_EQ(atlas.cellCall, "4;2;9;");
    EXPECT_EQ(ErrorOf([&] { call(atlas, "Cell", {4}); }),
              "Error: Incorrect function argument(s): Cell");
}

TEST_F(ClassDescriptorsTest, ObjectPropertiesAreSetByReference) {
    EXPECT_EQ(call(atlas, "Next").getObject(false), nullptr);
    call(atlas, "Next").SetObjectRef(book);
    EXPECT_EQ(atlas.next, &book);
    EXPECT_EQ(call(atlas, "Next").getObject(false), static_cast<UI_MacroVariant*>(&book));
    // Next has no setter for plain values: they go on to the default property of what it holds.
    call(atlas, "Next").Assign("Lady Susan");
    EXPECT_EQ(TextOf(call(book, "Title")), "Lady Susan");
    EXPECT_EQ(atlas.next, &book);
}

TEST_F(ClassDescriptorsTest, AMissingAccessorIsAnError) {
    const char* const text = "Object does not support this property or method";
    EXPECT_EQ(ErrorOf([&] { call(book, "Pages").Assign(1); }), text);
    EXPECT_EQ(ErrorOf([&] { call(book, "Title").SetObjectRef(atlas); }), text);
    EXPECT_EQ(ErrorOf([&] { TextOf(call(atlas, "Secret")); }), text);
    EXPECT_EQ(ErrorOf([&] { call(atlas, "Secret").Assign("Sky"); }), "no error");
    EXPECT_EQ(TextOf(call(atlas, "Title")), "Sky");
}

TEST_F(ClassDescriptorsTest, MembersAndTheDefaultAreInherited) {
    EXPECT_EQ(TextOf(call(atlas, "Loan", {"Bob"})), "Bob");
    EXPECT_EQ(TextOf(call(atlas, "Pages")), "maps") << "the class's own member comes first";
    EXPECT_EQ(TextOf(call(atlas, "MacroName")), "Book");
    EXPECT_STREQ(atlas.GetMacroDescriptor()->GetDefaultPropertyOrMethod()->GetName(), "Title");
    EXPECT_EQ(TextOf(UI_MacroVariant(static_cast<UI_MacroVariant*>(&atlas))), "World");
    UI_MacroVariant result(5);
    EXPECT_FALSE(EvaluateMember(atlas, "Nothing", nullptr, 0, result));
    EXPECT_EQ(static_cast<int>(result), 5);

    cMacroAppClass own("Own", Book::GetMacroClass());
    cMacroClassProperty<Book> pages(own, "Pages", "Integer", &Book::GetPages, nullptr, nullptr,
                                    true);
    EXPECT_EQ(own.GetDefaultPropertyOrMethod(), &pages);
}

TEST_F(ClassDescriptorsTest, WithoutANameTheObjectItselfIsMeant) {
    EXPECT_EQ(call(book, nullptr).getRefVal(), static_cast<UI_MacroVariant*>(&book));
    EXPECT_EQ(ErrorOf([&] { call(book, nullptr, {1}); }),
              "Error: Incorrect function argument(s): Title");
    MacroEval plain("plain");
    EXPECT_EQ(call(plain, nullptr).getRefVal(), static_cast<UI_MacroVariant*>(&plain));
    EXPECT_EQ(ErrorOf([&] { call(plain, nullptr, {1}); }),
              "Object doesn't support this property or method");
}

TEST_F(ClassDescriptorsTest, TellsPropertiesFromMethods) {
    Book child("child");
    atlas.Register(child, "Inset");
    EXPECT_TRUE(atlas.IsPropertyGet(nullptr));
    EXPECT_TRUE(atlas.IsPropertyGet("cell"));
    EXPECT_TRUE(atlas.IsPropertyGet("title"));
    EXPECT_TRUE(atlas.IsPropertyGet("macroname"));
    EXPECT_TRUE(atlas.IsPropertyGet("inset"));
    EXPECT_FALSE(atlas.IsPropertyGet("loan"));
    EXPECT_FALSE(atlas.IsPropertyGet("pages")) << "a method hides the inherited property";
    EXPECT_FALSE(atlas.IsPropertyGet("nothing"));
}

TEST_F(ClassDescriptorsTest, AnObjectMayEndOrLeaveWhileItsMemberRuns) {
    processor.Register(atlas, "World");
    EXPECT_EQ(static_cast<int>(call(atlas, "Gone")), 7);
    EXPECT_EQ(atlas.GetEvalParent(), nullptr);

    EXPECT_EQ(static_cast<int>(call(*new Atlas("old"), "Burn")), 8);
    EXPECT_EQ(ErrorOf([&] { call(*new Atlas("old"), "Burn", {1}); }),
              "Error: Incorrect function argument(s): Burn");
}

TEST_F(ClassDescriptorsTest, AProxyOutlivesItsObjectAsAPlainValue) {
    UI_MacroVariant title;
    {
        Book lost("Lost");
        title = call(lost, "Title");
        EXPECT_EQ(TextOf(title), "Lost");
    }
    EXPECT_EQ(TextOf(title), "Lost");
    title.Assign("found");
    EXPECT_EQ(TextOf(title), "found");
}

TEST_F(ClassDescriptorsTest, BrokenDeclarationsAreAssertions) {
    AssertRecorder asserts;
    cMacroAppClass broken("Broken", nullptr);
    broken.AddMethod(nullptr, false);
    EXPECT_EQ(asserts.Take().size(), 1u);
    cMacroClassMethod<Book> first(broken, "First", "Variant", &Book::Chapters, true);
    EXPECT_EQ(asserts.Take(), Messages{});
    cMacroClassMethod<Book> second(broken, "Second", "Variant", &Book::Chapters, true,
                                   cMacroArgument("a", "Integer").opt(1),
                                   cMacroArgument("b", "Integer"));
    EXPECT_EQ(asserts.Take().size(), 2u)
        << "a required argument after an optional one; a second default";
    EXPECT_EQ(broken.GetDefaultPropertyOrMethod(), &first);
    EXPECT_EQ(broken.GetPropertyOrMethod("SECOND", nullptr, 0), &second);
}

class Volume final : public UI_MacroProperty {
public:
    Volume() : UI_MacroProperty("Volume") {}
    using UI_MacroProperty::operator=;
    void SetValue(const UI_MacroVariant& value) override { level = static_cast<int>(value); }
    int level = 0;
};

TEST_F(ClassDescriptorsTest, APropertyObjectTakesValues) {
    Volume volume;
    UI_MacroVariant(static_cast<UI_MacroVariant*>(&volume)).Assign(11);
    EXPECT_EQ(volume.level, 11);
    EXPECT_EQ(ErrorOf([&] { volume = UI_MacroVariant(); }), "Error: Object is nothing: ");
    EXPECT_EQ(ErrorOf([&] { volume = UI_MacroVariant::Null(); }), "Error: Object is nothing: ");
    EXPECT_EQ(volume.level, 11);
}

TEST_F(ClassDescriptorsTest, MacrosUseAllOfIt) {
    UI_Macro macro(true);
    Book note("");
    macro.Register(book, "Novel");
    macro.Register(atlas, "World");
    macro.Register(note, "Note");
    macro.ExecuteMacroString("Novel.Title = \"Sanditon\"\n"
                             "t = Novel.Title\n"
                             "Novel.Title = \"changed\"\n"
                             "World.Cell(1, 2) = World.Cell(3, 4) + 1\n"
                             "Set World.Next = Novel\n"
                             "World.Next.Title = World.Next.Title & \"!\"\n"
                             "Set n = World.Next\n"
                             "Note.Title = t & \" \" & n & \" \" & n.Loan(\"Eve\", 2) & \" \" & "
                             "Novel.Chapters(0)\n");
    EXPECT_EQ(TextOf(call(note, "Title")), "Sanditon changed! Eve,2 start");
    EXPECT_EQ(atlas.cellCall, "1;2;35;");
    EXPECT_EQ(ErrorOf([&] { macro.ExecuteMacroString("Novel.Pages = 3"); }),
              "Object does not support this property or method");
    EXPECT_EQ(ErrorOf([&] { macro.ExecuteMacroString("Novel.Loan"); }),
              "Error: Incorrect function argument(s): Loan");
}

} // namespace
