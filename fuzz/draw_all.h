/// Whatever came out of a reader, drawn in every way, its pitches refreshed and its play list built.
#pragma once

namespace zarn
{
void DrawAll();
} // namespace zarn
