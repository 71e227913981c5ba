#include "EngineFixture.h"

namespace {

using Tree = ParserTree;
using Node = Tree::Node;
using Kind = Tree::Kind;
using DimNode = Tree::NodeImpl<Tree::Dim, true>;
using IfNode = Tree::NodeImpl<Tree::If, true>;
using NumberNode = Tree::NodeImpl<Tree::LongValue, false>;
using MinusNode = Tree::NodeImpl<Tree::UnaryOp, false>;

using Nodes = std::vector<const Node*>;

/// The children from the first on; checks both directions of the ring.
Nodes childrenOf(const Node& parent) {
    Nodes children;
    for (const Node* child = parent.GetFirstChild(); child; child = child->GetNextSibling()) {
        EXPECT_EQ(child->GetParent(), &parent);
        EXPECT_EQ(child->GetPreviousSibling(), children.empty() ? nullptr : children.back());
        children.push_back(child);
    }
    EXPECT_EQ(parent.GetLastChild(), children.empty() ? nullptr : children.back());
    return children;
}

void expectDetached(const Node& node) {
    EXPECT_EQ(node.GetParent(), nullptr);
    EXPECT_EQ(node.GetNextSibling(), nullptr);
    EXPECT_EQ(node.GetPreviousSibling(), nullptr);
}

/// A parser without a door.
class ParserTreeTest : public testing::Test {
protected:
    bool parse(std::string_view text) {
        processor.SetSource(new MemorySource(text));
        return processor.Parse();
    }
    Tree& tree() { return processor.GetTree(); }
    Tree::ScriptUnit& unit() { return *tree().GetCurrentUnit(); }

    MacroParser processor{true};
};

class TreeCellsTest : public EngineTest {
protected:
    /// How many nodes of a procedure still hold a value.
    static int cellsOf(const char* procedure) {
        const FunctionTableItem* const item = processor().GetProcedures().Lookup(procedure);
        if (!item) {
            ADD_FAILURE() << "no procedure " << procedure;
            return -1;
        }
        int count = 0;
        Node* const top = item->GetDeclaration();
        for (Node* node = top; node;) {
            if (node->GetResult() && node->GetResult()->GetTop())
                ++count;
            Node* next = node->GetFirstChild();
            while (!next && node != top) {
                next = node->GetNextSibling();
                if (!next)
                    node = node->GetParent();
            }
            node = next;
        }
        return count;
    }
};

} // namespace

// --- Links ---------------------------------------------------------------------------------------

TEST_F(ParserTreeTest, ChildrenFormARing) {
    DimNode parent, other, a, b, c;
    parent.AppendChild(&b);
    EXPECT_EQ(childrenOf(parent), (Nodes{&b}));
    parent.AppendChild(&c);
    parent.PrependChild(&a);
    EXPECT_EQ(childrenOf(parent), (Nodes{&a, &b, &c}));

    parent.AppendChild(&a); // a node that is a child already moves
    EXPECT_EQ(childrenOf(parent), (Nodes{&b, &c, &a}));
    parent.PrependChild(&c);
    EXPECT_EQ(childrenOf(parent), (Nodes{&c, &b, &a}));
    parent.PrependChild(&c);
    parent.AppendChild(&a);
    EXPECT_EQ(childrenOf(parent), (Nodes{&c, &b, &a}));

    parent.AppendChild(&parent); // of no effect
    parent.PrependChild(&parent);
    EXPECT_EQ(childrenOf(parent), (Nodes{&c, &b, &a}));
    expectDetached(parent);

    other.AppendChild(&b); // and so does one of another parent
    EXPECT_EQ(childrenOf(parent), (Nodes{&c, &a}));
    EXPECT_EQ(childrenOf(other), (Nodes{&b}));

    c.Unlink();
    expectDetached(c);
    EXPECT_EQ(childrenOf(parent), (Nodes{&a}));
    c.Unlink();
    a.Unlink();
    b.Unlink();
    EXPECT_EQ(childrenOf(parent), Nodes{});
    EXPECT_EQ(childrenOf(other), Nodes{});
    expectDetached(a);
}

// --- Lines ---------------------------------------------------------------------------------------

TEST_F(ParserTreeTest, LineRecordsAreMadeOnceRevivedAndRecycled) {
    ASSERT_TRUE(parse(""));
    Tree::Position* const five = tree().GetOrCreatePosition(nullptr, 5);
    ASSERT_NE(five, nullptr);
    EXPECT_EQ(five->line, 5);
    EXPECT_EQ(five->script, &unit());
    ASSERT_EQ(unit().m_Lines.size(), 6u);
    EXPECT_EQ(unit().m_Lines[4], nullptr);
    EXPECT_EQ(tree().GetOrCreatePosition(nullptr, 5), five);

    five->line = -1;
    EXPECT_EQ(tree().GetOrCreatePosition(nullptr, 5), five);
    EXPECT_EQ(five->line, 5);

    Node* const first = tree().CreateAt<DimNode>(five);
    EXPECT_EQ(five->firstNode, first);
    Node* const second = tree().CreateAt<DimNode>(five);
    EXPECT_EQ(five->firstNode, first);
    EXPECT_EQ(five->lastNode, second);
    EXPECT_EQ(second->GetPosition(), five);
    EXPECT_EQ(second->GetLine(), 5);
    second->Release(tree());
    EXPECT_EQ(five->lastNode, first);

    Tree::Position* const eight = tree().GetOrCreatePosition(nullptr, 8);
    unit().m_Lines[8] = nullptr;
    unit().m_FreePositions.push_back(eight);
    EXPECT_EQ(tree().GetOrCreatePosition(nullptr, 2), eight);
    EXPECT_EQ(eight->line, 2);
    EXPECT_TRUE(unit().m_FreePositions.empty());

    AssertRecorder asserts;
    EXPECT_EQ(tree().GetOrCreatePosition(nullptr, -1), nullptr);
    EXPECT_EQ(asserts.Take().size(), 1u);
}

// --- Life of nodes -------------------------------------------------------------------------------

TEST_F(ParserTreeTest, ReleasingANodeLeavesItsChildrenAlive) {
    ASSERT_TRUE(parse(""));
    Node* const parent = tree().Create<IfNode>();
    Node* const child = tree().Create<DimNode>();
    unit().m_Root.AppendChild(parent);
    parent->AppendChild(child);
    parent->Release(tree());
    EXPECT_EQ(childrenOf(unit().m_Root), Nodes{});
    expectDetached(*child);
    child->Release(tree());
}

TEST_F(ParserTreeTest, ARootIsNeverReleased) {
    ASSERT_TRUE(parse("x = 1\ny = 2"));
    {
        AssertRecorder asserts;
        unit().m_Root.Release(tree());
        EXPECT_EQ(asserts.Take().size(), 1u);
    }
    ASSERT_NE(tree().GetCurrentUnit(), nullptr);
    EXPECT_TRUE(unit().m_Root.Is(Kind::Root));
}

TEST_F(ParserTreeTest, AVeryDeepTreeIsFreedWithoutRecursion) {
    ASSERT_TRUE(parse(""));
    Node* parent = &unit().m_Root;
    for (int i = 0; i < 300000; ++i) {
        Node* const child = tree().Create<MinusNode>();
        parent->AppendChild(child);
        parent = child;
    }
    parent->AppendChild(tree().Create<NumberNode>());
    tree().Clear();
    EXPECT_EQ(tree().GetCurrentUnit(), nullptr);
    EXPECT_EQ(tree().m_GlobalNames.GetCount(), 0);
    EXPECT_EQ(processor.Current().node, nullptr);
    EXPECT_TRUE(parse("x = 1"));
}

// --- Values --------------------------------------------------------------------------------------

TEST_F(TreeCellsTest, NeitherAResultNorAnErrorDeepDownLeavesValues) {
    EXPECT_EQ(runText("Log.Add f(3)\nFunction f(n)\n  If n > 0 Then f = n + f(n - 1) * 2\n"
                      "End Function"),
              Lines{"11"});
    EXPECT_EQ(cellsOf("f"), 0);
    EXPECT_EQ(runText("Log.Add f(20)\n"
                      "Function f(n)\n"
                      "  If n = 0 Then nothere 1\n"
                      "  f = n + f(n - 1) * 2\n"
                      "End Function\n"),
              Lines{"Object doesn't support this property or method: 'nothere'"});
    EXPECT_EQ(cellsOf("f"), 0);
}

TEST_F(ParserTreeTest, ANodeThatEndsTakesItsValuesWithIt) {
    DimNode noValue;
    {
        NumberNode early;
        EXPECT_EQ(processor.getResultVal(&early), nullptr); // no frame yet
    }
    ASSERT_TRUE(parse(""));
    EXPECT_EQ(processor.getResultVal(&noValue), nullptr);
    {
        NumberNode node;
        EXPECT_EQ(processor.findResult(&node), nullptr);
        Tree::Cell* const cell = processor.getResultVal(&node);
        ASSERT_NE(cell, nullptr);
        EXPECT_TRUE(cell->value.IsEmpty());
        cell->value = UI_MacroVariant("a text of some length that has to be freed again");
        EXPECT_EQ(processor.getResultVal(&node), cell);
        EXPECT_EQ(processor.findResult(&node), cell);
        processor.releaseResult(&node);
        EXPECT_EQ(processor.findResult(&node), nullptr);
        EXPECT_NE(processor.getResultVal(&node), nullptr);
    }
    processor.Reset(); // frees the frame, which must not know the node any more
}
