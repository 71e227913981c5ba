// The tree of named objects.

#include "macroengine/objects/Library.h"

#include <gtest/gtest.h>

namespace {

class MacroEvalTest : public ::testing::Test {
protected:
    static UI_MacroVariant* plain(MacroEval& object) { return &object; }

    MacroParser processor{true};
    MacroEval root{"Root"};
};

TEST_F(MacroEvalTest, RegistersFindsAndReplaces) {
    MacroEval first("Item");
    MacroEval second("Item");
    root.Register(first, nullptr);
    EXPECT_EQ(root.Get("ITEM"), plain(first));
    EXPECT_EQ(first.GetEvalParent(), &root);
    root.Register(second, "item");
    EXPECT_EQ(root.Get("Item"), plain(second));
    EXPECT_EQ(first.GetEvalParent(), &root) << "the replaced object keeps its parent";
    root.Register(second, "Alias");
    EXPECT_EQ(root.Get("Alias"), plain(second));

    MacroEval nameless("");
    root.Register(nameless, "");
    root.Register(nameless, nullptr);
    EXPECT_EQ(nameless.GetEvalParent(), nullptr);
    EXPECT_EQ(root.Get(""), nullptr);
    EXPECT_EQ(root.Get("unknown"), nullptr);

    first.SetName("Other");
    EXPECT_STREQ(first.GetName(), "Other");
    EXPECT_EQ(root.Get("Other"), nullptr) << "a new name does not move the entry";
}

TEST_F(MacroEvalTest, RemovesOnlyTheObjectThatIsMeant) {
    MacroEval first("Item");
    MacroEval second("Item");
    root.Remove(first, nullptr);
    root.Register(first, nullptr);
    root.Remove(second, "Item");
    EXPECT_EQ(root.Get("Item"), plain(first)) << "another object of that name";
    root.Remove(first, "Wrong");
    EXPECT_EQ(first.GetEvalParent(), nullptr);
    EXPECT_EQ(root.Get("Item"), plain(first));
    root.Remove(first, nullptr);
    EXPECT_EQ(root.Get("Item"), nullptr);
}

TEST_F(MacroEvalTest, ObjectsEndInAnyOrder) {
    auto parent = std::make_unique<MacroEval>("Parent");
    auto child = std::make_unique<MacroEval>("Child");
    auto other = std::make_unique<MacroEval>("Other");
    parent->Register(*child, nullptr);
    parent->Register(*other, nullptr);
    UI_MacroVariant reference(plain(*child));
    child.reset();
    EXPECT_EQ(parent->Get("Child"), nullptr);
    EXPECT_EQ(reference.GetRVal(), nullptr) << "a Reference reads as Null";
    parent.reset();
    EXPECT_EQ(other->GetEvalParent(), nullptr);
    other.reset();

    // A second name keeps the entry of an object that has gone: it reads as Null, not as an error.
    auto aliased = std::make_unique<MacroEval>("Aliased");
    root.Register(*aliased, "Alias");
    aliased.reset();
    EXPECT_EQ(root.Get("Alias"), nullptr);
    EXPECT_EQ(root.Evaluate("Alias", nullptr, 0).GetRVal(), nullptr);
}

TEST_F(MacroEvalTest, CopiesShareTheNamesAndAreNotRegistered) {
    MacroEval child("Child");
    MacroEval late("Late");
    auto source = std::make_unique<MacroEval>("Source");
    source->Register(child, nullptr);
    root.Register(*source, nullptr);
    source->SetIntVal(5);
    {
        MacroEval copy(*source);
        EXPECT_STREQ(copy.GetName(), "Source");
        EXPECT_EQ(copy.GetEvalParent(), &root);
        EXPECT_EQ(copy.GetIntVal(), 5);
        EXPECT_EQ(copy.Get("Child"), plain(child));
        copy.Register(late, nullptr);
        EXPECT_EQ(source->Get("Late"), plain(late));
        EXPECT_EQ(root.Get("Source"), plain(*source));
    }
    EXPECT_EQ(root.Get("Source"), plain(*source)) << "the end of the copy unregisters nobody";
    EXPECT_EQ(source->Get("Child"), plain(child));
    source.reset();
    EXPECT_EQ(child.GetEvalParent(), nullptr);
    EXPECT_EQ(root.Get("Source"), nullptr);
}

TEST_F(MacroEvalTest, ParentsGiveADottedPath) {
    MacroEval app("App");
    MacroEval options("Options");
    MacroEval page("Page");
    MacroEval field("Field");
    MacroEval indexed("(3)");
    EXPECT_STREQ(app.GetEvalParentName(), "");
    app.RegisterWithMacroParent();
    EXPECT_EQ(processor.Get("App"), plain(app));
    app.Register(options, nullptr);
    options.Register(indexed, nullptr);
    indexed.Register(page, nullptr);
    page.Register(field, nullptr);
    EXPECT_STREQ(app.GetEvalParentName(), "");
    EXPECT_STREQ(options.GetEvalParentName(), "App");
    EXPECT_STREQ(page.GetEvalParentName(), "App.Options(3)");
    EXPECT_STREQ(field.GetEvalParentName(), "App.Options(3).Page");
    options.RemoveFromMacroParent();
    EXPECT_STREQ(page.GetEvalParentName(), "Options(3)");
    app.RemoveFromMacroParent();
    EXPECT_EQ(processor.Get("App"), nullptr);
}

TEST_F(MacroEvalTest, AModalContextIndentsThePath) {
    MacroEval options("Options");
    MacroEval page("Page");
    MacroEval field("Field");
    options.RegisterWithMacroParent();
    options.Register(page, nullptr);
    page.Register(field, nullptr);
    processor.PushModalContext("Options");
    EXPECT_STREQ(page.GetEvalParentName(), "  ");
    EXPECT_STREQ(field.GetEvalParentName(), "  .Page");
    processor.PopModalContext();
    EXPECT_STREQ(field.GetEvalParentName(), "Options.Page");
}

TEST_F(MacroEvalTest, ANamelessObjectInThePathIsAnAssertion) {
    MacroEval nameless("");
    MacroEval child("Child");
    root.Register(nameless, "Entry");
    nameless.Register(child, nullptr);
    AssertRecorder asserts;
    EXPECT_STREQ(child.GetEvalParentName(), "Root");
    EXPECT_EQ(asserts.Take().size(), 1u);
}

TEST_F(MacroEvalTest, EvaluatesChildrenBeforeTheCommonMembers) {
    MacroEval child("MacroName");
    EXPECT_EQ(TextOf(root.Evaluate("macroName", nullptr, 0)), "Root");
    root.Register(child, nullptr);
    EXPECT_EQ(root.Evaluate("macroName", nullptr, 0).getRefVal(), plain(child));
    EXPECT_EQ(ErrorOf([&] { root.Evaluate("Missing", nullptr, 0); }),
              "Error: Member not found: Missing");

    Book book("Emma");
    Book inset("Inset");
    book.Register(inset, "Title");
    EXPECT_EQ(TextOf(book.Evaluate("Title", nullptr, 0)), "Emma")
        << "members of the object's own class come before children";
}

TEST_F(MacroEvalTest, ChecksArgumentCounts) {
    UI_MacroVariant args[3] = {1, 2, UI_MacroVariant()};
    args[2].SetType(vvtMissing);
    int count = 3;
    root.CheckArguments(2, args, count);
    EXPECT_EQ(count, 2);
    EXPECT_EQ(ErrorOf([&] { root.CheckArguments(3, args, count); }),
              "Error: Incorrect function argument(s): ");
}

/// Takes errors into its own hands.
class Tolerant : public Book {
public:
    Tolerant() : Book("tolerant") {}
    using MacroEval::operator=;
    void OnMacroError(const SYS_String& message) const override { last = message.c_str(); }
    void OnMacroError(int code, const SYS_String& param) const override {
        last = std::to_string(code) + param.c_str();
    }
    mutable std::string last;
};

TEST_F(MacroEvalTest, ErrorsPassThroughTheObject) {
    Tolerant object;
    UI_MacroVariant value = object.Evaluate("Loan", nullptr, 0);
    EXPECT_EQ(object.last, "34Loan");
    EXPECT_TRUE(value.IsEmpty());
    object.Evaluate("Pages", nullptr, 0).Assign(1);
    EXPECT_EQ(object.last, "Object does not support this property or method");
}

} // namespace
