// What the items of the context menus of tables stand for.
#pragma once

#include <array>

struct MenuCommand {
    unsigned command;
    const char* objectName;
};

/// The items that act. What stands in a menu and has no row here does nothing when it is chosen: the borders of cells
/// and the matching of cells, which are reached by the host's own numbers 1852 and 1854 alone, and the names of styles.
inline constexpr std::array<MenuCommand, 37> TableResArr = {{
    {1847, "IDR_TABLECELL_CUT"},
    {1848, "IDR_TABLECELL_COPY"},
    {1849, "IDR_TABLECELL_PASTE"},
    {1851, "IDR_TABLECELL_BACKGROUNDFILL"},
    {1802, "IDR_ALIGNMENT_TOPLEFT"},
    {1803, "IDR_ALIGNMENT_TOPCENTER"},
    {1804, "IDR_ALIGNMENT_TOPRIGHT"},
    {1805, "IDR_ALIGNMENT_MIDDLELEFT"},
    {1806, "IDR_ALIGNMENT_MIDDLECENTER"},
    {1807, "IDR_ALIGNMENT_MIDDLERIGHT"},
    {1808, "IDR_ALIGNMENT_BOTTOMLEFT"},
    {1809, "IDR_ALIGNMENT_BOTTOMCENTER"},
    {1810, "IDR_ALIGNMENT_BOTTOMRIGHT"},
    {1819, "IDR_LOCKING_UNLOCKED"},
    {1820, "IDR_LOCKING_CONTENTLOCKED"},
    {1821, "IDR_LOCKING_FORMATLOCKED"},
    {1822, "IDR_LOCKING_CONTENTFORMATLOCKED"},
    {1853, "IDR_TABLECELL_DATAFORMAT"},
    {1859, "IDR_TABLECELL_EDITTEXT"},
    {1863, "IDR_TABLECELL_DELETEALLCONTENT"},
    {1835, "IDR_BYCOLUMN_LEFTINSERT"},
    {1836, "IDR_BYCOLUMN_RIGHTINSERT"},
    {1837, "IDR_BYCOLUMN_DELETE"},
    {1838, "IDR_BYCOLUMN_SIZEEQUALLY"},
    {1840, "IDR_BYROW_ABOVEINSERT"},
    {1841, "IDR_BYROW_BELOWINSERT"},
    {1842, "IDR_BYROW_DELETE"},
    {1843, "IDR_BYROW_SIZEEQUALLY"},
    {1816, "IDR_MERGE_ALL"},
    {1817, "IDR_MERGE_BYROW"},
    {1818, "IDR_MERGE_BYCOLUMN"},
    {1864, "IDR_TABLECELL_UNMERGE"},
    {1882, "IDR_TABLESTYLE_SAVESTYLE"},
    {1883, "IDR_TABLESTYLE_SETCURRENTSTYLE"},
    {1884, "IDR_TABLESTYLE_REMOVEOVERRIDES"},
    {1885, "IDR_TABLESTYLE_EXPORT"},
    {1886, "IDR_TABLESTYLE_INDICATORCOLOR"},
}};
