// The host's own texts.

#include "host/ui/hosttexts.h"

#include <array>

#include "host/win32/modules.h"

namespace kdhost {
namespace {

struct Text {
    HostText number;
    const char* english;
    const char* chinese;
};

constexpr std::array kTexts = {
    Text{HostText::ByLayer, "By layer", "随层"},
    Text{HostText::ByBlock, "By block", "随块"},
    Text{HostText::ByDefault, "Default", "默认"},
    Text{HostText::Red, "Red", "红"},
    Text{HostText::Yellow, "Yellow", "黄"},
    Text{HostText::Green, "Green", "绿"},
    Text{HostText::Cyan, "Cyan", "青"},
    Text{HostText::Blue, "Blue", "蓝"},
    Text{HostText::Magenta, "Magenta", "洋红"},
    Text{HostText::BlackOrWhite, "Black or white", "黑白"},
    Text{HostText::ColorNumber, "Color %1", "颜色 %1"},
    Text{HostText::TrueColor, "%1,%2,%3", "%1,%2,%3"},
    Text{HostText::OtherColor, "Select color...", "选择颜色..."},
    Text{HostText::OtherLinetype, "Other...", "其他..."},
    Text{HostText::NoColor, "None", "无"},
    Text{HostText::MillimetreWeight, "%1 mm", "%1 毫米"},
    Text{HostText::Ok, "OK", "确定"},
    Text{HostText::Cancel, "Cancel", "取消"},
    Text{HostText::Apply, "&Apply", "应用(&A)"},
    Text{HostText::ColorTitle, "Select Color", "选择颜色"},
    Text{HostText::ColorIndexPage, "Inde&x Color", "索引颜色(&X)"},
    Text{HostText::ColorTruePage, "&True Color", "真彩色(&T)"},
    Text{HostText::ColorPalette, "Palette of index colors", "索引颜色调色板"},
    Text{HostText::ColorIndex, "&Index (1 to 255):", "索引 (1 到 255)(&I):"},
    Text{HostText::ColorRedPart, "&Red:", "红(&R):"},
    Text{HostText::ColorGreenPart, "&Green:", "绿(&G):"},
    Text{HostText::ColorBluePart, "&Blue:", "蓝(&B):"},
    Text{HostText::ColorBad, "Enter a color index from 1 to 255.", "请输入 1 到 255 之间的颜色索引。"},
    Text{HostText::ColorOld, "Current color:", "当前颜色:"},
    Text{HostText::ColorNew, "New color:", "新颜色:"},
    Text{HostText::ByLayerButton, "By &layer", "随层(&L)"},
    Text{HostText::ByBlockButton, "By bloc&k", "随块(&K)"},
    Text{HostText::NoColorButton, "&None", "无(&N)"},
    Text{HostText::LinetypeTitle, "Select Linetype", "选择线型"},
    Text{HostText::LinetypeList, "Linetypes of the dra&wing:", "图形中的线型(&W):"},
    Text{HostText::LinetypeLoad, "&Load...", "加载(&L)..."},
    Text{HostText::LinetypeLoadTitle, "Load Linetypes", "加载线型"},
    Text{HostText::LinetypePatterns, "Standard &patterns:", "标准线型(&P):"},
    Text{HostText::TextStyleTitle, "Text Style", "文字样式"},
    Text{HostText::TextStyleList, "&Styles:", "样式(&S):"},
    Text{HostText::TextStyleCurrent, "Current style: %1", "当前样式: %1"},
    Text{HostText::TextStyleSetCurrent, "Set &Current", "置为当前(&C)"},
    Text{HostText::TextStyleNew, "&New...", "新建(&N)..."},
    Text{HostText::TextStyleRename, "&Rename...", "重命名(&R)..."},
    Text{HostText::TextStyleDelete, "&Delete", "删除(&D)"},
    Text{HostText::TextStyleName, "Style &name:", "样式名(&N):"},
    Text{HostText::TextStyleProposal, "Style%1", "样式%1"},
    Text{HostText::TextStyleFont, "&Font:", "字体(&F):"},
    Text{HostText::TextStyleBold, "&Bold", "粗体(&B)"},
    Text{HostText::TextStyleItalic, "&Italic", "斜体(&I)"},
    Text{HostText::TextStyleHeight, "&Height:", "高度(&H):"},
    Text{HostText::TextStyleWidth, "&Width factor:", "宽度因子(&W):"},
    Text{HostText::TextStyleSample, "AaBb 123", "AaBb 文字 123"},
    Text{HostText::TextStyleNameTaken, "A text style of this name exists already.", "已存在同名的文字样式。"},
    Text{HostText::TextStyleNameEmpty, "Enter a name for the style.", "请输入样式名。"},
    Text{HostText::TextStyleInUse, "The style is in use and can't be deleted.", "该样式正在使用，无法删除。"},
    Text{HostText::TextStyleStandard, "The style \"Standard\" keeps its name and stays.",
         "样式“Standard”不能重命名或删除。"},
    Text{HostText::TextStyleLocked, "The style can't be changed now.", "现在无法修改该样式。"},
    Text{HostText::TextStyleBadNumbers, "The height must be 0 or more, the width factor above 0.",
         "高度不能小于 0，宽度因子必须大于 0。"},
    Text{HostText::FormatTitle, "Data Format", "数据格式"},
    Text{HostText::FormatDataType, "&Data type:", "数据类型(&D):"},
    Text{HostText::FormatUnitType, "&Unit type:", "单位类型(&U):"},
    Text{HostText::FormatFormat, "&Format:", "格式(&F):"},
    Text{HostText::FormatPrecision, "&Precision:", "精度(&P):"},
    Text{HostText::FormatPreview, "Preview:", "预览:"},
    Text{HostText::TypeGeneral, "General", "常规"},
    Text{HostText::TypeText, "Text", "文字"},
    Text{HostText::TypeWhole, "Whole number", "整数"},
    Text{HostText::TypeDecimal, "Decimal number", "小数"},
    Text{HostText::TypeDate, "Date", "日期"},
    Text{HostText::TypePoint, "Point", "点"},
    Text{HostText::UnitNone, "None", "无"},
    Text{HostText::UnitAngle, "Angle", "角度"},
    Text{HostText::UnitCurrency, "Currency", "货币"},
    Text{HostText::UnitPercentage, "Percentage", "百分比"},
    Text{HostText::FormatAsStored, "As stored", "原样"},
    Text{HostText::FormatDecimal, "Decimal", "十进制"},
    Text{HostText::FormatScientific, "Scientific", "科学"},
    Text{HostText::FormatEngineering, "Engineering", "工程"},
    Text{HostText::FormatArchitectural, "Architectural", "建筑"},
    Text{HostText::FormatFractional, "Fractional", "分数"},
    Text{HostText::FormatDegrees, "Decimal degrees", "十进制度数"},
    Text{HostText::FormatDegreesMinutesSeconds, "Degrees, minutes, seconds", "度/分/秒"},
    Text{HostText::FormatGradians, "Gradians", "百分度"},
    Text{HostText::FormatRadians, "Radians", "弧度"},
    Text{HostText::FormatBearing, "Surveyor's bearing", "勘测方位"},
    Text{HostText::FormatDollar, "Dollar ($)", "美元 ($)"},
    Text{HostText::FormatEuro, "Euro (€)", "欧元 (€)"},
    Text{HostText::FormatPound, "Pound (£)", "英镑 (£)"},
    Text{HostText::FormatYuan, "Yuan (¥)", "人民币 (¥)"},
    Text{HostText::FormatThousands, "Thousands separated", "千位分隔"},
    Text{HostText::FormatDate, "Date", "日期"},
    Text{HostText::FormatSampleText, "Sample text", "样例文字"},
    Text{HostText::FormatUpper, "Uppercase", "大写"},
    Text{HostText::FormatLower, "Lowercase", "小写"},
    Text{HostText::FileFilterAll, "All files (*)", "所有文件 (*)"},
    Text{HostText::FileReplace, "%1 already exists. Replace it?", "%1 已存在。要替换它吗？"},
    Text{HostText::HelpTitle, "Help", "帮助"},
    Text{HostText::HelpMissing, "There are no help pages.", "没有帮助页面。"},
    Text{HostText::HelpBack, "&Back", "后退(&B)"},
    Text{HostText::HelpContents, "&Contents", "目录(&C)"},
    Text{HostText::HelpClose, "Close", "关闭"},
    Text{HostText::EditorTitle, "Text Editor", "文字编辑器"},
    Text{HostText::EditorBar, "Text format", "文字格式"},
    Text{HostText::EditorBold, "Bold", "粗体"},
    Text{HostText::EditorItalic, "Italic", "斜体"},
    Text{HostText::EditorUnderline, "Underline", "下划线"},
    Text{HostText::EditorColor, "Color", "颜色"},
    Text{HostText::EditorHeight, "Text height", "文字高度"},
    Text{HostText::EditorFormula, "Insert formula (Enter)", "插入公式 (回车)"},
};

constexpr bool inOrder() {
    for (std::size_t i = 0; i < kTexts.size(); ++i) {
        if (static_cast<std::size_t>(kTexts[i].number) != i) return false;
    }
    return kTexts.size() == static_cast<std::size_t>(HostText::kCount);
}
static_assert(inOrder(), "one row for each text, in the order of their numbers");

}  // namespace

QString hostText(HostText text) {
    const Text& row = kTexts[static_cast<std::size_t>(text)];
    return QString::fromUtf8(language() == Language::Chinese ? row.chinese : row.english);
}

}  // namespace kdhost
