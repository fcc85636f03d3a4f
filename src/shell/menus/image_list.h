// A list of pictures for the items and side bars of menus, numbered from 1.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace velmora {

struct ListImage {
    enum class Kind { bitmap, icon, other };

    std::string Key = {};
    Kind kind = Kind::bitmap;
    int Width = 0;  ///< pixels
    int Height = 0;
};

struct ImageList {
    std::vector<ListImage> ListImages = {};

    /// The picture of that number, null for none.
    const ListImage* image(int number) const {
        if (number < 1 || static_cast<std::size_t>(number) > ListImages.size()) return nullptr;
        return &ListImages[static_cast<std::size_t>(number) - 1];
    }
};

}  // namespace velmora
