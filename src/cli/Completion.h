#pragma once

#include <string>

namespace CLI {
class App;
}

namespace strutwright {

/// A script that has a shell complete the commands of a program, their options and the words that these take.
/// shell: "bash", "zsh" or "fish".
std::string CompletionScript(const CLI::App& program, const std::string& shell);

} // namespace strutwright
