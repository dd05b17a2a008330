// CoreGraphics, as far as this program uses it. See ../README.md.
#pragma once

// CGFloat is a double on every 64-bit system; macOS 10.0
typedef double CGFloat;

// struct CGPoint { CGFloat x, y; }, struct CGSize { CGFloat width, height; },
// struct CGRect { CGPoint origin; CGSize size; }; macOS 10.0
struct CGPoint {
    CGFloat x;
    CGFloat y;
};
struct CGSize {
    CGFloat width;
    CGFloat height;
};
struct CGRect {
    CGPoint origin;
    CGSize size;
};
typedef struct CGPoint CGPoint;
typedef struct CGSize CGSize;
typedef struct CGRect CGRect;

typedef const struct __CFDictionary* CFDictionaryRef;

// CFDictionaryRef CGSessionCopyCurrentDictionary(void); null for a caller outside a session of the
// window server; the caller releases the result; macOS 10.3
extern "C" CFDictionaryRef _Nullable CGSessionCopyCurrentDictionary(void);
