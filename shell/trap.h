#pragma once

#include <functional>
#include <string_view>

#include "forms/form.h"
#include "platform/values/trap.h"

namespace dg {

/// The trap of a view: on an error the phrase, number and description go to the log with a leading
/// "*", after `failed` has run (which marks the view's recap label); the view is incomplete then.
/// Returns whether all went well.
bool trapView(Form& view, std::string_view phrase, const std::function<void()>& body,
              const std::function<void()>& failed = {});

}  // namespace dg
