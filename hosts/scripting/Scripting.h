#pragma once

// Two automation classes that macro authors expect on every machine: "Scripting.Dictionary" and
// "Scripting.FileSystemObject". Everything runs in this process, files through the engine's
// platform layer.

namespace scripting {

/// Makes both classes known to `CreateObject`, in every engine of the process. May be called again.
void Register();

/// Takes them away again. Objects that exist live on.
void Revoke();

} // namespace scripting
