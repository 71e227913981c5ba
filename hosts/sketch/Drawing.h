#pragma once

#include "Figure.h"

#include <map>
#include <optional>
#include <unordered_map>
#include <vector>

/// What the Options dialog sets.
struct PageOptions {
    std::string title = "Untitled";
    double width = 400;
    double height = 300;
    int background = 0xFFFFFF;
    double grid = 0; // distance of the grid lines; 0: none

    bool operator==(const PageOptions&) const = default;
};

/// Figures and page options, and how to go back and forth between their states. A figure keeps its
/// number for good; a removed one can come back under it.
class Drawing {
public:
    /// Makes all changes up to `Commit` one step to undo. Without it they are taken back.
    class Step {
    public:
        explicit Step(Drawing& drawing) : m_Drawing(drawing) {}
        Step(const Step&) = delete;
        Step& operator=(const Step&) = delete;
        ~Step();
        void Commit();

    private:
        Drawing& m_Drawing;
    };

    const PageOptions& GetOptions() const { return m_Options; }
    /// The living figures, the lowest first.
    const std::vector<int>& GetOrder() const { return m_Order; }
    /// Null for a figure that has been removed.
    const Figure* Get(int number) const;
    /// The number of the figure of that name, ignoring case; -1 if there is none.
    int Find(const std::string& name) const;

    // Changes, only within a step.
    int Add(const Figure& figure);
    void Change(int number, const Figure& figure);
    void Remove(int number);
    void SetOptions(const PageOptions& options);

    /// Both are false if there is nothing left to go to.
    bool Undo();
    bool Redo();

private:
    using State = std::optional<Figure>; // nothing: the figure does not exist
    struct Edit {
        struct Change {
            State before;
            State after;
        };
        std::map<int, Change> figures;
        std::optional<PageOptions> optionsBefore;
        PageOptions optionsAfter;
    };

    void change(int number, const State& after);
    void put(int number, const State& state);
    void goBack(const Edit& edit);
    void goForward(const Edit& edit);
    void commit();

    std::vector<State> m_Figures;
    std::vector<int> m_Order;
    std::unordered_map<std::string, int> m_Names; // in lower case
    PageOptions m_Options;
    Edit m_Open;
    std::vector<Edit> m_Done;
    std::vector<Edit> m_Undone;
};
