// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A run surface that records all calls and gives scripted answers to prompts.

#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "engine/run_surface.h"

namespace quorbit {

class RecordingSurface : public RunSurface {
public:
    struct Box {
        std::string text;
        std::string caption;
        bool operator==(const Box&) const = default;
    };

    std::vector<bool> answers;       // to the prompts in order; then No
    std::function<void()> onPrompt;  // called while a prompt or box is open; may be null

    std::vector<Box> prompts;
    std::vector<Box> messages;
    std::vector<std::string> errors;
    std::vector<std::string> warnings;
    std::vector<std::pair<RunText, std::string>> texts;
    std::map<RunCounter, std::vector<std::int32_t>> counters;  // every value shown
    std::vector<std::string> phases;                           // "counting", "processing 3", ...
    std::uint64_t bytes = 0;

    void ShowText(RunText which, std::string_view text) override
    {
        texts.emplace_back(which, text);
    }
    void ShowCounter(RunCounter which, std::int32_t value) override
    {
        counters[which].push_back(value);
    }
    void AddBytes(std::uint64_t count) override { bytes += count; }
    void OnPhase(RunPhase phase, std::int32_t total) override
    {
        const char* const names[] = {"counting", "processing", "finishing", "ended", "closed"};
        phases.emplace_back(names[static_cast<std::size_t>(phase)]);
        if (phase == RunPhase::Processing) {
            phases.back() += " " + std::to_string(total);
        }
    }
    void ShowError(std::string_view text) override { errors.emplace_back(text); }
    void ShowWarning(std::string_view text) override { warnings.emplace_back(text); }
    bool AskYesNo(std::string_view text, std::string_view caption) override
    {
        prompts.push_back({std::string(text), std::string(caption)});
        if (onPrompt) {
            onPrompt();
        }
        return prompts.size() <= answers.size() && answers[prompts.size() - 1];
    }
    void ShowMessage(std::string_view text, std::string_view caption, PromptIcon) override
    {
        messages.push_back({std::string(text), std::string(caption)});
        if (onPrompt) {
            onPrompt();
        }
    }
};

}  // namespace quorbit
