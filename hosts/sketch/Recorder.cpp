#include "Recorder.h"

#include <UI_MacroProcessor.h>

#include <utility>

namespace {

/// How a line names the object: by its path, or by nothing but an indent in its own block.
std::string pathOf(MacroEval& object) {
    const MacroSupport& processor = *MacroSupport::GetProcessor();
    if (processor.GetModalContext() == object.GetName())
        return processor.GetModalContextIndent().c_str();
    const std::string parent = object.GetEvalParentName().c_str();
    const std::string name = object.GetName().c_str();
    return parent.empty() ? name : parent + "." + name;
}

} // namespace

/// A call on its way, which is recorded once: when a dialog opens in it, else when it is done.
class Recorder::Pending {
public:
    Pending(Recorder& recorder, MacroEval& object, std::string line)
        : m_Recorder(recorder), m_Object(object), m_Line(std::move(line)),
          m_Outer(std::exchange(recorder.m_Pending, this)) {}
    Pending(const Pending&) = delete;
    Pending& operator=(const Pending&) = delete;
    ~Pending() { m_Recorder.m_Pending = m_Outer; }

    void Record(int id) {
        if (!std::exchange(m_IsRecorded, true))
            m_Object.Record(m_Line.c_str(), id);
    }

private:
    Recorder& m_Recorder;
    MacroEval& m_Object;
    std::string m_Line;
    Pending* m_Outer;
    bool m_IsRecorded = false;
};

void Recorder::Call(MacroEval& object, const char* member, std::vector<RecordedValue> arguments,
                    int id) {
    std::string line = pathOf(object) + "." + member;
    std::vector<UI_MacroVariant> values;
    for (const RecordedValue& argument : arguments) {
        line += (values.empty() ? " " : ", ") + argument.text;
        values.push_back(argument.value);
    }
    Pending pending(*this, object, line);
    object.Evaluate(member, values.data(), static_cast<int>(values.size()));
    pending.Record(id);
}

void Recorder::Set(MacroEval& object, const char* property, const RecordedValue& value) {
    const std::string line = pathOf(object) + "." + property + " = " + value.text;
    object.Evaluate(property, nullptr, 0).Assign(value.value);
    object.Record(line.c_str(), 0);
}

void Recorder::SetItem(MacroEval& object, const char* property, const RecordedValue& argument,
                       const RecordedValue& value) {
    const std::string line =
        pathOf(object) + "." + property + "(" + argument.text + ") = " + value.text;
    UI_MacroVariant item = argument.value;
    object.Evaluate(property, &item, 1).Assign(value.value);
    object.Record(line.c_str(), 0);
}

void Recorder::BeginDialog(const char* name) {
    if (m_Pending)
        m_Pending->Record(0);
    MacroSupport::GetProcessor()->PushModalContext(name);
}

void Recorder::EndDialog() { MacroSupport::GetProcessor()->PopModalContext(); }
