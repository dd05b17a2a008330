#include "year/year_texts.h"

namespace voltmere::year {

const Texts& texts(bool chinese)
{
    static const Texts zh{"等待检查",
                          "未检测到外设",
                          "电量正常",
                          "电量偏低：",
                          {"鼠标", "键盘", "触控板"},
                          "、",
                          "",
                          " 电量提醒",
                          "外设电量提醒",
                          "外设电量",
                          "电量正常：",
                          "当前电量",
                          "%，请及时充电。",
                          "，请及时充电。",
                          "20 分钟后",
                          "开机自动启动"};
    static const Texts en{"Waiting for check",
                          "No peripherals found",
                          "Battery level is fine",
                          "Low battery: ",
                          {"Mouse", "Keyboard", "Trackpad"},
                          ", ",
                          "",
                          " battery alert",
                          "Peripheral battery alert",
                          "Peripheral battery",
                          "All good: ",
                          "Battery at ",
                          "%. Please charge.",
                          ". Please charge.",
                          "In 20 minutes",
                          "Launch at login"};
    return chinese ? zh : en;
}

} // namespace voltmere::year
