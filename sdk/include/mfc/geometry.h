// Points, sizes and rectangles of the screen, in pixels.
#pragma once

class QRect;

struct CPoint {
    long x = 0;
    long y = 0;
    friend bool operator==(const CPoint&, const CPoint&) = default;
};

struct CSize {
    long cx = 0;
    long cy = 0;
    friend bool operator==(const CSize&, const CSize&) = default;
};

/// right and bottom lie one pixel behind the rectangle.
struct CRect {
    long left = 0;
    long top = 0;
    long right = 0;
    long bottom = 0;

    CRect() = default;
    CRect(long l, long t, long r, long b) : left(l), top(t), right(r), bottom(b) {}
    explicit CRect(const QRect& rect);
    QRect toQRect() const;

    long Width() const { return right - left; }
    long Height() const { return bottom - top; }
    friend bool operator==(const CRect&, const CRect&) = default;
};
