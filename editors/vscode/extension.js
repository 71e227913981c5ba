// The tasks of macro files: to run and to check the one that is open, and any that a tasks.json
// names.

const vscode = require("vscode");

const LABELS = { run: "Run the macro", check: "Check the macro" };

function makeTask(definition, scope) {
    const file = definition.file || "${file}";
    const program = vscode.workspace.getConfiguration("mcr").get("path", "mcr");
    const execution = new vscode.ProcessExecution(program, [definition.command, file]);
    const task = new vscode.Task(
        definition, scope, LABELS[definition.command], "mcr", execution, ["$mcr"]);
    if (definition.command === "check") {
        task.group = vscode.TaskGroup.Build;
    }
    task.presentationOptions = { clear: true };
    return task;
}

const provider = {
    provideTasks() {
        return Object.keys(LABELS).map((command) =>
            makeTask({ type: "mcr", command }, vscode.TaskScope.Workspace));
    },
    resolveTask(task) {
        if (!(task.definition.command in LABELS)) {
            return undefined;
        }
        return makeTask(task.definition, task.scope || vscode.TaskScope.Workspace);
    },
};

function activate(context) {
    context.subscriptions.push(vscode.tasks.registerTaskProvider("mcr", provider));
}

module.exports = { activate };
