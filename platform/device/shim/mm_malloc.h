#pragma once
// The compiler headers ask for it; the phone has no such intrinsics.
