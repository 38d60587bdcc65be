// Galleries: what the host draws of many samples, kept as text, a line for each primitive, and compared with what is
// drawn now. Nobody writes the kept texts by hand: each run leaves the text and a picture of what is drawn now in the
// build folder, under pictures/galleries. Where the drawing was meant to change, its picture is looked at, and its text
// takes the place of the kept one.
#pragma once

#include <string>
#include <vector>

#include "host/draw/primitives.h"

class KdDbBlockReference;

namespace kdtest::preview {

class Gallery {
public:
    /// `name` is that of the kept text and of the picture, `width` the number of samples in a row of the picture.
    Gallery(std::string name, int width) : m_name(std::move(name)), m_width(width) {}

    void add(const std::string& title, const KdDbBlockReference& sample);

    /// Ends the gallery: leaves its text and its picture, and compares the text with what is kept. Fails the running
    /// test at the first line that differs, numbers by more than 0.002.
    void finish() const;

private:
    struct Item {
        std::string title;
        kdhost::draw::Primitives primitives;
    };

    std::vector<std::string> lines() const;
    void paint(const std::string& folder) const;

    std::string m_name;
    int m_width;
    std::vector<Item> m_items;
};

}  // namespace kdtest::preview
