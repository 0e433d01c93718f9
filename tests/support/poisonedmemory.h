#pragma once

/// In a program that is built with poisonedmemory.cpp, whatever is destroyed is overwritten at once and its memory
/// is used again only much later: what uses a dead object crashes, or is found out by wasTouched(), with no
/// sanitizer at work.
namespace PoisonedMemory {

/// Whether anybody has written to what was destroyed, since the last call.
bool wasTouched();

} // namespace PoisonedMemory
