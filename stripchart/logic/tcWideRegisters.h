#pragma once

/// The upper halves of the processor's vector registers.
namespace tcWideRegisters
{

/// Tells the processor that nothing in them is needed any more.
///
/// Filling rectangles leaves them in use (Qt 5.15 on processors with AVX2). As long as they
/// are, each ordinary floating-point instruction carries on what stands there and so waits for
/// the one before it: summing up samples and painting lines was seen to take twice as long.
/// Nothing happens on processors that have no such halves.
void release();

} // namespace tcWideRegisters
