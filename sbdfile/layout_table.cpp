// How the sections of the table blocks stand in the project file.
#include "sbdfile/layout_table.h"

namespace sbd {

namespace {

// clang-format off

using enum RowRule;

constexpr std::string_view kComments304[] = {
    "!  主桁始    主桁終   UFLG最大幅  LFLG最大幅   WEB最大厚  UFLG最小幅  LFLG最小幅   WEB最小厚   最低材質",
};
constexpr std::string_view kFormats304[] = {
    "%9s %9s  %11s %11s %11s %11s %11s %11s    %1s",
};
constexpr std::string_view kComments305[] = {
    "!  主桁名  左腹板名  右腹板名   [左腹板名_下側]   [右腹板名_下側]",
};
constexpr std::string_view kFormats305[] = {
    "%9s %9s %9s %17s %17s",
};
constexpr std::string_view kComments306[] = {
    "! タイプ             荷重名(KELD_analysis)     ×(÷)               係数",
};
constexpr std::string_view kFormats306[] = {
    "  %-18s %-25s %-12s %12s",
};
constexpr std::string_view kComments307[] = {
    "!  主桁始    主桁終    横桁始    横桁終    (曲げモーメント低減量DM)",
    "!  主桁始    主桁終    横桁始    横桁終    (支点・支承線上点)    (曲げモーメント低減量DM)",
};
constexpr std::string_view kFormats307[] = {
    "%-9s %-9s %-9s %-9s %9s      %9s",
};
constexpr std::string_view kComments312[] = {
    "!  主桁始    主桁終    横桁始    横桁終    地覆高    舗装高    詰材高    床版高  ハンチ高 [角度(箱桁)]",
    "!  腹板名    腹板名    横桁始    横桁終    地覆高    舗装高    詰材高    床版高  ハンチ高 [角度(箱桁)]",
};
constexpr std::string_view kFormats312[] = {
    "%9s %9s %9s %9s %9s %9s %9s %9s %9s %9s",
};
constexpr std::string_view kComments313[] = {
    "!  主桁始    主桁終    横桁始    横桁終   I左右両   幅1 厚1 本数n  間隔(n個)  幅2 厚2; 幅3 厚3;･･･幅n 厚n (n-1個)",
};
constexpr std::string_view kFormats313[] = {
    "  %-9s %-9s %-9s %-9s %-7s %1s %1s  %1s  %1s",
};
constexpr std::string_view kComments314[] = {
    "! 主桁名    主桁名    横桁始    横桁終    I左右両          幅        厚   材質",
};
constexpr std::string_view kFormats314[] = {
    "  %-9s %-9s %-9s %-9s %-9s %9s %9s   %1s",
};
constexpr std::string_view kComments315[] = {
    "!  主桁始    主桁終    横桁始    横桁終   I左右両   1/2段目 上_下本数  幅1,厚1; 幅2,厚2; 幅3,厚3; 幅4,厚4;...",
};
constexpr std::string_view kFormats315[] = {
    "%9s %9s %9s %9s %9s %7s %5s %5s  %1s",
};
constexpr std::string_view kComments316[] = {
    "!   TYPE   左線名    右線名    横桁始  横桁終    高さ左    高さ右(mm)   勾配(%)    舗装高   幅員(幅)",
};
constexpr std::string_view kFormats316[] = {
    "  %-11s %-9s %-9s %-9s %-9s  %9s %9s %9s %9s %1s",
};
constexpr std::string_view kComments321[] = {
    "! 継手名    I左右両    主桁始    主桁終   左側横桁名   VSTIFF番号     間隔   [継手TYPE]",
    "! 継手名    I左右両    主桁始    主桁終    継手長   [継手TYPE]",
};
constexpr std::string_view kFormats321[] = {
    "%9s %9s %9s %9s %9s %9s %15s %10s",
};
constexpr std::string_view kComments322[] = {
    "! 断面名    I左右両    主桁始    主桁終   左側横桁名   VSTIFF番号     間隔",
    "! 断面名    I左右両    主桁始    主桁終    断面長",
};
constexpr std::string_view kFormats322[] = {
    "%9s %9s %9s %9s %9s %9s %15s",
};
constexpr std::string_view kComments323[] = {
    "!  主桁名    同断面したい主桁名",
};
constexpr std::string_view kFormats323[] = {
    "  %-9s %-9s",
};
constexpr std::string_view kComments326[] = {
    "! 主桁始  主桁終    断面始    断面終   [U][L]FLG             Bi       [Hi]         Ti        [Ri]   左･右･中心    距離",
};
constexpr std::string_view kFormats326[] = {
    "  %-9s %-9s %-9s %-9s %9s %9s %9s %9s %9s %9s %9s",
};
constexpr std::string_view kComments327[] = {
    "!  主桁始    主桁終    横桁始    横桁終   I左右両   UFLG固定点距離   LFLG固定点距離  U曲線付加応力用  L曲線付加応力用",
};
constexpr std::string_view kFormats327[] = {
    "%9s %9s %9s %9s %9s %16s %16s %16s %16s",
};
constexpr std::string_view kComments328[] = {
    "!  主桁始    主桁終    横桁始    横桁終     曲率半径(直線=-1)",
};
constexpr std::string_view kFormats328[] = {
    "%9s %9s %9s %9s %20s",
};
constexpr std::string_view kComments329[] = {
    "!  主桁始   主桁終   横桁始   横桁終  [垂直補剛材あり(YES_NO)]",
};
constexpr std::string_view kFormats329[] = {
    "  %-9s %-9s %-9s %-9s %9s",
};
constexpr std::string_view kComments331[] = {
    "!  主桁始    主桁終    横桁始    横桁終   I左右両      材質   板厚Twb  決定要因  [板厚Twe] [内･外･中心(箱)] [距離(箱)]",
};
constexpr std::string_view kFormats331[] = {
    "%9s %9s %9s %9s %9s %9s %9s %9s %9s %9s %9s",
};
constexpr std::string_view kComments332[] = {
    "!  主桁始    主桁終    横桁始    横桁終  [U][L]FLG     材質     幅Bfb   板厚Tfb  決定要因   [幅Bfe]  [板厚Tfe]",
};
constexpr std::string_view kFormats332[] = {
    "%9s %9s %9s %9s %9s %9s %9s %9s %9s %9s %9s",
};
constexpr std::string_view kComments333[] = {
    "!  主桁始    主桁終    横桁始    横桁終  [U][L]FLG    左突出 右突出 左横断差 [WEB間隔] [中･左腹距] [右横断差] [有効幅]   [位置]",
};
constexpr std::string_view kFormats333[] = {
    "  %-9s %-9s %-9s %-9s %9s %9s %9s %9s %9s %9s %9s %9s %9s",
};
constexpr std::string_view kComments334[] = {
    "!  主桁始    主桁終    横桁始    横桁終  [U][L]FLG    左横断差   右横断差",
};
constexpr std::string_view kFormats334[] = {
    "  %-9s %-9s %-9s %-9s %9s %9s %9s",
};
constexpr std::string_view kComments335[] = {
    "! 自動計算  YES・NO  床版左線名  床版右線名  箱桁ハンチ内側幅",
};
constexpr std::string_view kRowComments335[] = {
    "! 主桁  I桁/LR腹 横桁始 終  床版高 ハンチ高 左幅a 右幅a  左幅b 右幅b 変化位置 等価支間 勾配 (左λ 右λ  全幅   有効幅)",
};
constexpr std::string_view kFormats335[] = {
    "  %-6s %-6s %-6s %-6s %8s %8s %8s %8s %8s %8s %8s %8s %8s %8s %8s %8s %8s",
};
constexpr std::string_view kComments336[] = {
    "! 自動計算  YES・NO 一般部径 支点部径 一般部上間隔 下間隔 支点部上間隔 下間隔 主鉄筋径 主上かぶり 主下側かぶり",
};
constexpr std::string_view kRowComments336[] = {
    "! 主桁始 主桁終 横桁 変化位置 上鉄筋径 上鉄筋径 上側間隔 下間隔 上側かぶり 下かぶり 上鉄筋本数 下鉄筋本数",
};
constexpr std::string_view kFormats336[] = {
    "  %-6s %-6s %-6s %-6s %-6s %8s %8s %6s %6s %6s %6s %6s",
};
constexpr std::string_view kComments337[] = {
    "! 自動計算  YES・NO  許容誤差  M最小量",
};
constexpr std::string_view kRowComments337[] = {
    "! 主桁名　横桁名　クリープ曲げM　クリープせん断S　乾燥収縮曲げM　乾燥収縮せん断S　温度差正曲げM　温度差正せん断S　温度差負曲げM　温度差負せん断S",
};
constexpr std::string_view kFormats337[] = {
    "  %-6s %-6s %-6s %-6s %-6s %8s %8s %6s %6s %6s",
};
constexpr std::string_view kComments338[] = {
    "! 自動計算  YES・NO  床版応力(主桁支間)  上鉄筋応力  下鉄筋応力  床版応力(主桁支点)  上鉄筋応力  下鉄筋応力  出力優先",
};
constexpr std::string_view kRowComments338[] = {
    "! 主桁名 断面名 左中右横桁 着目対象 床版作用 主桁L荷重 0.6主桁   死荷重  クリープ 乾燥収縮 温度差 (1)主荷重 (2)許容値 (3)主+温 (4)許容値 (1)>(2) (3)>(4)",
    "! 主桁名 断面名 左中右横桁 着目対象 床版作用 後死荷重  (1)主桁作用 (2)許容値 (1)>(2)",
    "! 主桁名 断面名 左中右横桁 着目対象 床版作用 後死荷重  主桁L荷重  (1)主桁作用 (2)許容値 (1)>(2)",
    "! 主桁名 断面名 左中右横桁 着目対象 床版作用 後死荷重  主桁L荷重 クリープ 乾燥収縮 (1)主桁作用 (2)許容値 (1)>(2)",
    "! 主桁名 断面名 左中右横桁 着目対象 床版作用 後死荷重  主桁L荷重 クリープ 乾燥収縮 温度差  (1)主桁作用 (2)許容値 (3)主+温 (4)許容値 (1)>(2) (3)>(4)",
};
constexpr std::string_view kFormats338[] = {
    "  %-6s %-6s %-6s %6s %6s %6s %6s %6s %6s %6s %6s %6s %6s %6s %6s %6s %6s",
};
constexpr std::string_view kComments339[] = {
    "! 自動計算  YES・NO",
    "! 主桁名 断面名 左中右横桁 上鉄筋径 上側本数 下鉄筋径 下側本数 床版断面積  応力状態  (1)鉄筋比 (2)最小鉄筋量 (3)周長率 (4)許容値 (1)>(2) (3)>(4)",
};
constexpr std::string_view kFormats339[] = {
    "  %-6s %-6s %-6s %6s %6s %6s %6s %6s %6s %6s %6s %6s %6s %6s %6s",
};
constexpr std::string_view kComments340[] = {
    "! 自動計算  YES・NO",
    "! 主桁名 断面名 左中右横桁 鉄筋径 鉄筋中心間隔 純かぶり  σs/σse εcsd・1e-6 (1)ひび割れ幅  (2)許容値  (1)>(2)",
    "! 主桁名 断面名 左中右横桁 鉄筋径 鉄筋中心間隔 純かぶり    σs  εcsd・1e-6    fct   鉄筋比   αst  σse   (1)ひび割れ幅  (2)許容値  (1)>(2)",
};
constexpr std::string_view kFormats340[] = {
    "  %-6s %-6s %-6s %6s %6s %6s %6s %6s %6s %6s %6s %6s %6s %6s %6s",
};
constexpr std::string_view kComments341[] = {
    "!  主桁始    主桁終  継手名始  継手名終  U･LFLG･L･RWEB   呼び   FLG本数WEB列数  孔引き形式･千鳥･WEB割数",
};
constexpr std::string_view kFormats341[] = {
    "%9s %9s %9s %9s %9s %12s %10s %15s",
};
constexpr std::string_view kComments342[] = {
    "!  主桁始    主桁終  継手名始  継手名終  U･LFLG･L･RWEB 外添接板厚 内側厚  [外側幅]  [内側幅]  [長さ]",
};
constexpr std::string_view kFormats342[] = {
    "%9s %9s %9s %9s %9s %10s %9s %9s %9s %9s",
};
constexpr std::string_view kComments343[] = {
    "!  主桁始    主桁終  継手名始  継手名終   [U,L]FLG       Lc     間隔LD      端Le    Bc･Bc1L   幅縁Be  (Bd1,Bc1R,Bd2,Bc2L,Bc2R,･･･Bdn,BcnL,BcnR,Bdn+1,BeR)",
};
constexpr std::string_view kFormats343[] = {
    "%9s %9s %9s %9s %9s %9s %9s %9s %9s %9s %9s",
};
constexpr std::string_view kComments344[] = {
    "!  主桁始    主桁終  継手名始  継手名終   I左右両       DU1      DU12      DL12       DL1        DC       DX  中間部の間隔",
};
constexpr std::string_view kFormats344[] = {
    "%9s %9s %9s %9s %9s %9s %9s %9s %9s %9s %9s %12s %9s %9s %5s %5s",
};
constexpr std::string_view kComments351[] = {
    "!  主桁始    主桁終    横桁始    横桁終   I左右両    位置名OR番号   等級 距離Y(mm) 仕上げ0 等級1 等級2 等級3",
};
constexpr std::string_view kFormats351[] = {
    "  %-9s %-9s %-9s %-9s %9s %9s %9s %9s %9s %9s %9s %9s",
};
constexpr std::string_view kComments352[] = {
    "!  主桁始    主桁終    横桁始    横桁終   I左右両      SZ_U      SZ_L",
};
constexpr std::string_view kFormats352[] = {
    "%9s %9s %9s %9s %9s %9s %9s",
};
constexpr std::string_view kComments353[] = {
    "!  主桁始    主桁終    横桁始    横桁終   I左右両    L_SWAY      LZ_L      TG_L      (LZ_U     TG_U)",
};
constexpr std::string_view kFormats353[] = {
    "%9s %9s %9s %9s %9s %9s %9s %9s %9s %9s",
};
constexpr std::string_view kComments354[] = {
    "!  主桁始    主桁終    横桁始    横桁終   I左右両      HZ_U      HZ_L",
};
constexpr std::string_view kFormats354[] = {
    "  %-9s %-9s %-9s %-9s %9s %9s %9s",
};
constexpr std::string_view kComments359[] = {
    "! 主桁      横桁          左右       Tc       Tf       Bc       Bf       Bw   σ張Max  σ張Min    τ張    σ腹Max   σ腹Min   τ腹   σ横Max  σ横Min   照査結果張出 腹板",
};
constexpr std::string_view kFormats359[] = {
    "  %-9s %-9s %8s %8s %8s %8s %8s %8s %8s %8s %8s %8s %8s %8s %8s %8s %8s %8s",
};
constexpr std::string_view kComments259[] = {
    "! 出力分類    荷重名",
};
constexpr std::string_view kFormats259[] = {
    "  %-19s %-19s",
};
constexpr std::string_view kComments291[] = {
    "! 主桁名    横桁始       始端最大   始端最小   始端前死   始端後死     終端最大  終端最小  終端前死   終端後死",
};
constexpr std::string_view kFormats291[] = {
    "  %-9s %-9s  %10s %10s %10s %10s %10s %10s %10s %10s",
};
constexpr std::string_view kComments292[] = {
    "! 主桁名    横桁始       始端最大   始端最小   始端前死   始端後死     終端最大  終端最小  終端前死   終端後死",
};
constexpr std::string_view kFormats292[] = {
    "  %-9s %-9s  %10s %10s %10s %10s %10s %10s %10s %10s",
};
constexpr std::string_view kComments293[] = {
    "! 主桁名    横桁始       始端最大   始端最小   始端前死   始端後死     終端最大  終端最小  終端前死   終端後死",
};
constexpr std::string_view kFormats293[] = {
    "  %-9s %-9s  %10s %10s %10s %10s %10s %10s %10s %10s",
};
constexpr std::string_view kComments294[] = {
    "! 主桁名    横桁始       始端最大   始端最小   始端前死   始端後死     終端最大  終端最小  終端前死   終端後死",
};
constexpr std::string_view kFormats294[] = {
    "  %-9s %-9s  %10s %10s %10s %10s %10s %10s %10s %10s",
};
constexpr std::string_view kComments295[] = {
    "! 主桁名    横桁始       始端最大   始端最小   始端前死   始端後死     終端最大  終端最小  終端前死   終端後死",
};
constexpr std::string_view kFormats295[] = {
    "  %-9s %-9s  %10s %10s %10s %10s %10s %10s %10s %10s",
};
constexpr std::string_view kComments296[] = {
    "! 主桁名    横桁始       始端最大   始端最小   始端前死   始端後死     終端最大  終端最小  終端前死   終端後死",
};
constexpr std::string_view kFormats296[] = {
    "  %-9s %-9s  %10s %10s %10s %10s %10s %10s %10s %10s",
};
constexpr std::string_view kComments391[] = {
    "! 主桁名    横桁始           最大       最小       前死       後死",
};
constexpr std::string_view kFormats391[] = {
    "  %-9s %-9s  %10s %10s %10s %10s",
};
constexpr std::string_view kComments392[] = {
    "! 主桁名    横桁始           最大       最小       前死       後死",
};
constexpr std::string_view kFormats392[] = {
    "  %-9s %-9s  %10s %10s %10s %10s",
};
constexpr std::string_view kComments393[] = {
    "! 主桁名    横桁始           最大       最小       前死       後死",
};
constexpr std::string_view kFormats393[] = {
    "  %-9s %-9s  %10s %10s %10s %10s",
};
constexpr std::string_view kComments394[] = {
    "! 主桁名    横桁始           最大       最小       前死       後死",
};
constexpr std::string_view kFormats394[] = {
    "  %-9s %-9s  %10s %10s %10s %10s",
};
constexpr std::string_view kComments395[] = {
    "! 主桁名    横桁始           最大       最小       前死       後死",
};
constexpr std::string_view kFormats395[] = {
    "  %-9s %-9s  %10s %10s %10s %10s",
};
constexpr std::string_view kComments396[] = {
    "! 主桁名    横桁始           最大       最小       前死       後死",
};
constexpr std::string_view kFormats396[] = {
    "  %-9s %-9s  %10s %10s %10s %10s",
};
constexpr std::string_view kComments402[] = {
    "! 自動手動  スラブ止め_RB     径d      長さL      端寸法H  始位置標準  標準間隔     D_SPL  (溶接長s)    -",
    "! 自動手動  スラブ止め_FB     厚t      長さL        幅B    始位置標準  標準間隔     D_SPL  (溶接長s)  (端寸法H)",
    "! 自動手動  スタッドジベル    径d      長さL        径D    頭部厚t    FLG縁端距離  D_SPL   (W)         -",
};
constexpr std::string_view kRowComments402[] = {
    "!主桁始 終 I左右両 継手名 始位置D    n1    間隔1  n2    間隔2   n3    間隔3, ...",
    "!主桁始 終 I左右両 継手名 始位置D_mb n1_m1 間隔1  n2_m2 間隔2   n3_m3 間隔3, ..., me",
    "!端横始 終  横桁   主桁名 始位置D    n1    間隔1  n2    間隔2   n3    間隔3, ..., m",
};
constexpr std::string_view kFormats402[] = {
    "  %4s  %-14s %10s %10s %10s %10s %10s %10s %10s %10s",
    "  %-3s %-4s %6s %6s %7s %5s %6s %5s %6s %5s %6s %1s",
};
constexpr std::string_view kComments403[] = {
    "! 自動手動   孔径D   管サイズ   長さ    材質    板厚    板幅     材質     種別",
};
constexpr std::string_view kRowComments403[] = {
    "! 主桁始    主桁終    横桁始   横桁始   タイプ DL_SWAY  DR_SWAY   LG1     LG2      DX      DY   ( DC1,  DC2,  DC3)",
};
constexpr std::string_view kFormats403[] = {
    "  %1s       %1s       %1s    %1s    %1s      %1s    %1s    %1s      %1s",
    "  %-6s %-6s %-6s %-6s %-6s %8s %8s %6s %6s %6s %6s %6s %6s %6s",
};
constexpr std::string_view kComments404[] = {
    "! 主桁始   主桁終     桁端寸法(始端)   桁端寸法(終端)   垂直補向き(正_負)    水平補向き(同側_反側) 橋台端寸法(始)       橋台桁端寸法(終)",
};
constexpr std::string_view kFormats404[] = {
    "  %-8s %-10s %14s %16s   %-20s %-20s %-20s %-1s",
};
constexpr std::string_view kComments405[] = {
    "! 主桁始 主桁終 横桁始 横桁終 セット方向 直角幅 橋軸幅   厚さ  支承高      ﾎﾞｽ径       BOLT径         本数 セット直角縁端 セット橋軸縁端高力ボルト径     高力本数 高力直角縁端 高力橋軸縁端  [間隔1] [間隔2] [勾配] [溶接] [開先溶接区間長]",
};
constexpr std::string_view kFormats405[] = {
    "  %-6s %-6s %-6s %-6s %-10s %6s %6s %6s %6s %7s %6s %6s %6s %8s %6s %6s %6s %8s %7s %7s %6s %6s %-1s",
};
constexpr std::string_view kComments407[] = {
    "! 主桁始 主桁終 横桁始 横桁終  材質       間隔左  間隔右  幅B  厚t  高H   DB    DH  BASE幅Bb  厚tb  高Hb 厚t材料 半径R   WEB溶接  LFLG溶接  BASEすみ肉溶接  BASE材質",
};
constexpr std::string_view kFormats407[] = {
    "  %-6s %-6s %-6s %-6s %-10s %7s %7s %7s %7s %7s %7s %7s %7s %7s %7s %7s %7s %7s %7s %7s %7s",
};
constexpr std::string_view kComments408[] = {
    "! 主桁始    主桁終    横桁始    横桁終    タイプ      位置    DX     DY       取手TYPE    本数n  間隔(n個)",
};
constexpr std::string_view kFormats408[] = {
    "  %-8s %-8s %-8s %-8s %-12s %-10s %8s %8s   %-10s %6s %10s",
};
constexpr std::string_view kComments409[] = {
    "! 主桁始    主桁終  継手名始 継手名始   タイプ      位置       DX       DY",
};
constexpr std::string_view kFormats409[] = {
    "  %-8s %-8s %-8s %-8s %-8s %-10s %10s %10s",
};
constexpr std::string_view kComments412[] = {
    "! 出力しないライン名",
};
constexpr std::string_view kFormats412[] = {
    "  自動計算  %1s",
    "  %1s",
};
constexpr std::string_view kComments413[] = {
    "! 橋台・桁端横断線名  ライン・主桁名      座標X           座標Y           座標Z",
};
constexpr std::string_view kFormats413[] = {
    "  %-19s %-10s %15s %15s %15s",
};
constexpr std::string_view kComments422[] = {
    "! 主桁始  主桁終  始終両(桁端)  I左右両   HE(LFLG上縁) ( H高さ   B幅   R  (補強板幅   厚  材質))",
};
constexpr std::string_view kFormats422[] = {
    "  %-8s %-8s %-8s %-8s %-8s %-10s %10s %10s %10s %10s %10s",
};
constexpr std::string_view kComments423[] = {
    "! 主桁始 主桁終 横桁始 横桁終 横リブ番号  [U][L]FLG   ﾀｲﾌﾟ     頭部R  下部R  切欠幅  (DIS・頭部R押え)",
};
constexpr std::string_view kFormats423[] = {
    "  %-9s %-9s %-9s %6s %6s %6s %6s %9s %9s %9s %9s",
};
constexpr std::string_view kComments481[] = {
    "! 主桁始    主桁終    継手名・終端",
};
constexpr std::string_view kFormats481[] = {
    "  %-9s %-9s %1s",
};
constexpr std::string_view kComments482[] = {
    "! 横桁始    横桁終   主桁名",
};
constexpr std::string_view kFormats482[] = {
    "  %-9s %-9s %1s",
};
constexpr std::string_view kComments483[] = {
    "! SHEET番号 主桁始    主桁終    横桁始    横桁終",
};
constexpr std::string_view kFormats483[] = {
    "  %-9s %-9s %-9s %-9s %-1s",
};
constexpr std::string_view kComments484[] = {
    "! 主桁始    主桁終    継手名・終端",
};
constexpr std::string_view kFormats484[] = {
    "  %-9s %-9s %1s",
};
constexpr std::string_view kComments485[] = {
    "! 横桁始    横桁終   主桁名",
};
constexpr std::string_view kFormats485[] = {
    "  %-9s %-9s %1s",
};
constexpr std::string_view kComments486[] = {
    "! SHEET番号 主桁始    主桁終    横桁始    横桁終",
};
constexpr std::string_view kFormats486[] = {
    "  %-9s %-9s %-9s %-9s %-1s",
};
constexpr std::string_view kComments502[] = {
    "! 主桁      左腹板上  右腹板上  (左腹板下 右腹板下)",
};
constexpr std::string_view kFormats502[] = {
    "  %-9s %-9s %1s",
    "  %-9s %-9s %-9s %-9s %1s",
};
constexpr std::string_view kComments503[] = {
    "! 主桁      横桁始    横桁終",
};
constexpr std::string_view kFormats503[] = {
    "  %-9s %-9s %1s",
};
constexpr std::string_view kComments504[] = {
    "! 主桁･LINE  横桁(対傾構)         X座標               Y座標               Z座標              線形Z座標          線形部材長",
};
constexpr std::string_view kFormats504[] = {
    "  %-9s %-9s  %19s %19s %19s",
    "  %-9s %-9s  %19s %19s %19s %19s %19s",
};
constexpr std::string_view kComments505[] = {
    "! 横桁始  横桁終           横桁長(mm)            斜角(度)        横桁間隔(mm)",
};
constexpr std::string_view kFormats505[] = {
    "  %-9s %-9s %15s %19s %14s",
};
constexpr std::string_view kComments506[] = {
    "! 横桁始 横桁終           床版厚    舗装厚    ハンチ高 　 総幅    地覆高    高欄高      補正  (端部張出)",
};
constexpr std::string_view kFormats506[] = {
    "  %-9s %-9s  %9s %9s %9s %9s %9s %9s %9s",
    "  %-9s %-9s  %9s %9s %9s %9s %9s %9s %9s %9s",
};
constexpr std::string_view kComments507[] = {
    "! 鈑桁横桁    主桁        曲げL[kN･m]    曲げR[kN･m]    せん断L[kN]    せん断R[kN]",
    "! 箱桁横桁    主桁        L曲げ最大時ML  L曲げ最大時MR  せん断最大L    せん断最大R  R曲げ最大時ML  R曲げ最大時MR",
};
constexpr std::string_view kFormats507[] = {
    "  %-9s %-9s  %14s %14s %14s %14s",
    "  %-9s %-9s  %14s %14s %14s %14s %14s %14s",
};
constexpr std::string_view kComments511[] = {
    "! 主桁始    主桁終    横桁始    横桁終         主桁高(mm)",
};
constexpr std::string_view kFormats511[] = {
    "  %-9s %-9s %-9s %-9s  %14s",
};
constexpr std::string_view kComments512[] = {
    "! 主桁始    主桁終    横桁始    横桁終          TU      TL      TW      BU      BL",
    "!主桁始   主桁終    横桁始    横桁終 TU   TL  TWL TWR   XU1   XU2   XL1   XL2    BU1    BU2    BL1    BL2    HWL   HWR  ZL",
};
constexpr std::string_view kFormats512[] = {
    "  %-9s %-9s %-9s %-9s  %7s %7s %7s %7s %7s %7s %7s %7s %7s %7s %7s %7s %7s %7s %7s",
};
constexpr std::string_view kComments513[] = {
    "! 主桁始    主桁終    横桁始    横桁終    左右両          幅1       厚1  本数n  間隔(等間隔・n個)  (幅2,厚2,…幅n,厚n)",
};
constexpr std::string_view kFormats513[] = {
    "  %-9s %-9s %-9s %-9s %-9s %9s %9s %6s  %1s",
};
constexpr std::string_view kComments514[] = {
    "! 主桁始    主桁始    横桁始    横桁終    左右両        幅       厚   材質   WEB溶接   LFLG溶接   (列数   間隔)   (取付ﾀｲﾌﾟ)     (B1      B2       W      D)",
};
constexpr std::string_view kFormats514[] = {
    "  %-9s %-9s %-9s %-9s %7s %8s %8s %8s %8s %8s %8s %8s %8s %8s %8s %8s %8s",
};
constexpr std::string_view kComments515[] = {
    "! 主桁始    主桁終    横桁始    横桁終    左右両    始上段数,下段数  B始    T始   終上段数,下段数  B終    T終",
};
constexpr std::string_view kFormats515[] = {
    "  %-9s %-9s %-9s %-9s %-9s %6s %6s %6s %6s   %6s %6s %6s %6s %6s %6s %6s %6s %6s %6s %6s %6s",
};
constexpr std::string_view kComments516[] = {
    "! 主桁始    主桁終    桁端寸法(始端)    桁端寸法(終端)",
};
constexpr std::string_view kFormats516[] = {
    "  %-9s %-9s %-15s %-15s",
};
constexpr std::string_view kComments517[] = {
    "! 主桁  横桁始  横桁終  DX    DY    B    H  NAME1     形状タイプ1       NAME2     形状タイプ2",
};
constexpr std::string_view kFormats517[] = {
    "  %-9s %-9s %-9s %6s %6s %6s %6s %9s %9s %9s %9s",
};
constexpr std::string_view kComments523[] = {
    "! 横桁始    横桁終    主桁始    主桁終    種別",
};
constexpr std::string_view kFormats523[] = {
    "  %-9s %-9s %-9s %-9s %-1s",
};
constexpr std::string_view kComments524[] = {
    "! グループ名       横桁始      横桁終",
};
constexpr std::string_view kFormats524[] = {
    "  %-9s %-9s %-1s",
};
constexpr std::string_view kComments532[] = {
    "! 横桁始    横桁終    主桁始    主桁終    左右両   SZ_U･H_SWAY･DIS_ZU  SZ_L･H_SWAY",
};
constexpr std::string_view kFormats532[] = {
    "  %-9s %-9s %-9s %-9s %-9s %14s %15s",
};
constexpr std::string_view kComments533[] = {
    "! 横桁始    横桁終    主桁始    主桁終      UFLG幅  UFLG厚   LFLG幅  LFLG厚   WEB厚   UFLG材質  LFLG材質  WEB材質 H形鋼",
};
constexpr std::string_view kFormats533[] = {
    "  %-9s %-9s %-9s %-9s %8s %7s %8s %7s %7s   %-9s %-9s %-9s %-1s",
};
constexpr std::string_view kComments534[] = {
    "! 横桁始    横桁終    主桁始    主桁終     列数   始終両       幅      厚   ﾋﾟｯﾁ(列数分)         材質",
};
constexpr std::string_view kFormats534[] = {
    "  %-9s %-9s %-9s %-9s %5s   %-7s %7s %7s   %-20s %-1s",
};
constexpr std::string_view kComments535[] = {
    "! 横桁始    横桁終    主桁始    主桁終     上段数  下段数   始終両       幅      厚   材質   上1段位置    下1段   上2段位置    下2段",
};
constexpr std::string_view kFormats535[] = {
    "  %-9s %-9s %-9s %-9s %8s %8s %8s %8s %8s %8s %8s %8s %8s %8s",
};
constexpr std::string_view kComments542[] = {
    "! 横桁始    横桁終    主桁始    主桁終    左右両       SZ_U･DIS_ZU     SZ_L ZU_TYPE ZL_TYPE     SY     SZ   斜材交点基準",
};
constexpr std::string_view kFormats542[] = {
    "  %-9s %-9s %-9s %-9s %-9s %12s %10s   %-4s %4s %9s %10s  %-1s",
};
constexpr std::string_view kComments543[] = {
    "! 横桁始    横桁終    主桁始    主桁終    上下斜 種別   材質             H        B      T1      T2        V   すみ肉溶接ｻｲｽﾞ  (CT斜材取付)",
};
constexpr std::string_view kFormats543[] = {
    "  %-9s %-9s %-9s %-9s %-6s %-6s %-10s %7s %8s %7s %7s %8s  %9s %9s",
};
constexpr std::string_view kComments551[] = {
    "! 横桁始    横桁終    主桁始    主桁終    左右両    連結形式 (入込方向 UFLG縁向き LFLG縁向き)",
};
constexpr std::string_view kFormats551[] = {
    "  %-9s %-9s %-9s %-9s %-9s %-9s %-9s %-9s %-1s",
};
constexpr std::string_view kComments552[] = {
    "! 横桁始    横桁終    主桁始    主桁終    左右両    上下   W番号  (材質)",
    "! 横桁始    横桁終    主桁始    主桁終    左右両    上下   C番号  (材質)      (向き   ｺﾈｸｼｮﾝ幅      厚  入込)",
};
constexpr std::string_view kFormats552[] = {
    "  %-9s %-9s %-9s %-9s %-9s %-6s %-6s %-11s %-6s %8s %8s  %-1s",
};
constexpr std::string_view kComments553[] = {
    "! 横桁始    横桁終    主桁始    主桁終    左右両    上下          B      T  (R_CENTER      BR        R     DIS   B2)",
};
constexpr std::string_view kFormats553[] = {
    "  %-9s %-9s %-9s %-9s %-9s %-6s %8s %6s   %-7s %8s %8s %8s %8s",
};
constexpr std::string_view kComments554[] = {
    "! 横桁始    横桁終    主桁始    主桁終    左右両    上下  呼び(等級)  孔引き形式 FLG本数 FLG行数 (ｺﾈｸｼｮﾝ行数 列数)",
};
constexpr std::string_view kFormats554[] = {
    "  %-9s %-9s %-9s %-9s %-9s %4s  %-10s %-10s %6s %6s %6s %6s",
};
constexpr std::string_view kComments555[] = {
    "! 横桁始    横桁終    主桁始    主桁終    左右両    上下     Lfc   Lfd   LfeL  LfeR  Bf   Bfe  (Lgc   Lgd   Lge  Bgd  Bge)",
};
constexpr std::string_view kFormats555[] = {
    "  %-9s %-9s %-9s %-9s %-9s %4s  %6s %5s %5s %5s %5s %5s %5s %5s %5s %5s %5s",
};
constexpr std::string_view kComments556[] = {
    "! 横桁始    横桁終    主桁始    主桁終    左右両   呼び(等級) 列数 割数  Ld Le  DU  DL  ピッチ(割数分)",
};
constexpr std::string_view kFormats556[] = {
    "  %-9s %-9s %-9s %-9s %-9s %-9s %4s %4s  %1s %1s %1s %1s  %1s",
};
constexpr std::string_view kComments557[] = {
    "! 横桁始    横桁終    主桁始    主桁終    左右両    [U･L]FLG･WEB      T1      T2      B1      B2       L  (GB1   GB2   GL)",
};
constexpr std::string_view kFormats557[] = {
    "  %-9s %-9s %-9s %-9s %-9s %-9s %10s %7s %7s %7s %7s %7s %7s %7s",
};
constexpr std::string_view kComments558[] = {
    "! 横桁始    横桁終    主桁始    主桁終    左右両    [U･L]FLG  呼び(等級)  FLG本数   孔引き形式   (GFLG本数   G孔引き形式)",
    "! 横桁始    横桁終    主桁始    主桁終    左右両    WEB       呼び(等級)  WEB列数   WEB割数",
};
constexpr std::string_view kFormats558[] = {
    "  %-9s %-9s %-9s %-9s %-9s %-9s %-10s %8s   %-1s  %8s  %8s",
};
constexpr std::string_view kComments559[] = {
    "! 横桁始    横桁終    主桁始    主桁終    左右両    [U･L]FLG       Lc      Ld      Le      Bc      Be  (GLc   GLd   GLe   GBc  GBe)",
};
constexpr std::string_view kFormats559[] = {
    "  %-9s %-9s %-9s %-9s %-9s %-9s %7s %7s %7s %7s %7s %7s %7s %7s %7s %7s",
};
constexpr std::string_view kComments560[] = {
    "! 横桁始    横桁終    主桁始    主桁終    左右両          DU1      DU12      DL12       DL1        DC        DX       (H)      DU23      DL23      BU01      BL01",
};
constexpr std::string_view kFormats560[] = {
    "  %-9s %-9s %-9s %-9s %-9s %9s %9s %9s %9s %9s %9s %9s %9s %9s %9s %9s",
};
constexpr std::string_view kComments561[] = {
    "! 横桁始    横桁終    主桁始    主桁終     左右両         BU1      BU2        L       LU      Dis      RU1      RU2      DU1      DU2      (BL1     BL2      RL1      RL2      DL1        DL2)",
};
constexpr std::string_view kFormats561[] = {
    "  %-9s %-9s %-9s %-9s %8s %10s %8s %8s %8s %8s %8s %8s %8s %8s %8s %8s %8s %8s %8s %8s",
};
constexpr std::string_view kComments562[] = {
    "! 横桁始    横桁終    主桁始    主桁終    左右両    上下   T     W  (d1   d2   d3   d4   d5  (TYPE1 TYPE2 TYPE3))",
};
constexpr std::string_view kFormats562[] = {
    "  %-9s %-9s %-9s %-9s %-9s %4s %4s %4s %4s %4s %4s %4s %4s %4s %4s %4s %6s %6s",
};
constexpr std::string_view kComments563[] = {
    "! 横桁始    横桁終    主桁始    主桁終    左右両    上下   呼び(等級)  列数 割数  Ld   Le   D  ﾋﾟｯﾁ(割数分)",
};
constexpr std::string_view kFormats563[] = {
    "  %-9s %-9s %-9s %-9s %-9s %4s   %4s %4s %4s %4s %4s %4s %1s",
};
constexpr std::string_view kComments564[] = {
    "! 横桁始    横桁終    主桁始    主桁終          T       BL       BR   H_Dis 鉛直縁方向    L_Dis  R_Dis   切断",
};
constexpr std::string_view kFormats564[] = {
    "  %-9s %-9s %-9s %-9s %7s %8s %8s %7s   %-6s  %7s %7s      %1s",
};
constexpr std::string_view kComments565[] = {
    "! 横桁始    横桁終    主桁始    主桁終    左右両    上下   Br   R   Dis",
    "! 横桁始    横桁終    主桁始    主桁終    左右両    上下   Br   R   Dis   Dc         Df   DR",
    "! 横桁始    横桁終    主桁始    主桁終    左右両    上下   Br   R   Dis   傾斜(Y_N)  Df   DR   Dh   Dv",
};
constexpr std::string_view kFormats565[] = {
    "  %-9s %-9s %-9s %-9s %-9s %4s %4s %4s %4s %6s %8s %4s %4s %4s",
};
constexpr std::string_view kComments566[] = {
    "! 横桁始    横桁終    主桁始    主桁終    上下    HL      HR    ( VL      VR ) (端部加工)",
};
constexpr std::string_view kFormats566[] = {
    "  %-9s %-9s %-9s %-9s %-4s %7s %7s %7s %7s  %1s",
};
constexpr std::string_view kComments572[] = {
    "! 主桁始    主桁終    横桁始    横桁終    種別   材質             H        B      T1      T2   (AXIAL)",
};
constexpr std::string_view kFormats572[] = {
    "  %-9s %-9s %-9s %-9s %-6s %-9s %8s %8s %7s %7s %7s",
};
constexpr std::string_view kComments573[] = {
    "! 主桁始    主桁終    横桁始    横桁終    始位置    終位置     (  DL       DR )",
};
constexpr std::string_view kFormats573[] = {
    "  %-9s %-9s %-9s %-9s %-9s %-9s %9s %9s",
};
constexpr std::string_view kComments574[] = {
    "! 主桁始    主桁終    横桁始    横桁終 位置タイプ(C・VS番号・距離(mm))",
};
constexpr std::string_view kFormats574[] = {
    "  %-9s %-9s %-9s %-9s %-1s",
};
constexpr std::string_view kComments575[] = {
    "! 主桁始    主桁終    横桁始    横桁終 ボルト 位置(0-10) 呼び(等級) 孔引き形式  行数   Lb   Ld   LeL  LeR   列数   Be  (Bd)",
    "! 主桁始    主桁終    横桁始    横桁終  溶接  位置(0-10)  溶接長L   溶接長R    すみ肉溶接ｻｲｽﾞ",
};
constexpr std::string_view kFormats575[] = {
    "  %-9s %-9s %-9s %-9s %-6s %3s    %-9s %5s %6s %5s %5s %5s %5s %4s %5s %5s",
};
constexpr std::string_view kComments576[] = {
    "! 主桁始    主桁終    横桁始    横桁終    切断1_2 ガセットタイプ    幅    厚  ボルト_溶接 (列数 縁端 )",
    "! 主桁始    主桁終    横桁始    横桁終    直結1_2",
};
constexpr std::string_view kFormats576[] = {
    "  %-9s %-9s %-9s %-9s %4s %10s %9s %7s %8s %8s %7s",
};
constexpr std::string_view kComments577[] = {
    "! 主桁始    主桁終    横桁始    横桁終    格点_中間_両  左右両   連結タイプ  材質         Off1    Off2  (入込)",
};
constexpr std::string_view kFormats577[] = {
    "  %-9s %-9s %-9s %-9s %-13s %-8s %-8s  %-10s %8s %7s %4s",
};
constexpr std::string_view kComments578[] = {
    "! 主桁始    主桁終    横桁始    横桁終    格点_中間_両  左右両   外枠タイプ       BL       BR      T     H (立上L 立上R)",
};
constexpr std::string_view kFormats578[] = {
    "  %-9s %-9s %-9s %-9s %-13s %-8s %-9s %9s %9s %5s %6s %5s %5s",
};
constexpr std::string_view kComments579[] = {
    "! 主桁始    主桁終    横桁始    横桁終    格点_中間_両  左右両   溶接無           R1       BR      Dis",
    "! 主桁始    主桁終    横桁始    横桁終    格点_中間_両  左右両   溶接無           R1       R2       BR    頭部R押え",
    "! 主桁始    主桁終    横桁始    横桁終    格点_中間_両  左右両   溶接無           R1       R2",
};
constexpr std::string_view kFormats579[] = {
    "  %-9s %-9s %-9s %-9s %-13s %-8s %-9s  %8s %8s %8s %1s",
};
constexpr std::string_view kComments581[] = {
    "! 主桁始    主桁終    横桁始    横桁終    格点_中間_両  左右両   外縁向き  内縁タイプ     L     T   (R)",
};
constexpr std::string_view kFormats581[] = {
    "  %-9s %-9s %-9s %-9s %-13s %-8s %-9s %-9s %6s %5s %5s",
};
constexpr std::string_view kComments582[] = {
    "! 主桁始    主桁終    横桁始    横桁終    格点_中間_両  左右両   呼び(等級) 行数   Le  Ld  Lc  列数1 Be1 Bd1  (列数2 Be2 Bd2)",
};
constexpr std::string_view kFormats582[] = {
    "  %-9s %-9s %-9s %-9s %-13s %-8s %-10s %4s %4s %4s %4s %4s %4s %4s %4s %4s %4s",
};
constexpr std::string_view kComments583[] = {
    "! 横桁始  横桁終  主桁始  主桁終  左右両  始終両  押え位置     R",
    "! 主桁始  主桁終  横桁始  横桁終  左右両  始終両  押え位置     L      T  呼び(等級)    行数   Le     Ld     Lc   列数     Be     Bd",
};
constexpr std::string_view kFormats583[] = {
    "  %-9s %-9s %-9s %-9s %-9s %-9s %-9s %6s %6s %6s %6s %10s %6s %6s %6s %6s %6s",
};
constexpr std::string_view kComments602[] = {
    "! 垂補間 :垂直補剛材間橋軸方向分割数 (分割<0で最大分割距離(m) 分割>0で分割数指定)",
    "! 横WEB  :横桁WEB(対傾構)長方向分割数;   横FLG  :横桁FLG(対傾構)幅方向分割数",
    "! 横桁始    横桁終        垂補間     横WEB     横FLG",
};
constexpr std::string_view kFormats602[] = {
    "  %-9s %-9s %10s %9s %9s",
};
constexpr std::string_view kComments603[] = {
    "!                 横桁   支点ｺﾝｸﾘｰﾄ   床版      支点",
    "! 主桁             WEB     U_FLG     L_FLG   V_STIFF   H_STIFF   下横構1   下横構2",
};
constexpr std::string_view kFormats603[] = {
    "  %-9s %10s %9s %9s %9s %9s %9s %9s",
};
constexpr std::string_view kComments604[] = {
    "! 主桁始    主桁終    断面名        断面長     WEB厚    UFLG幅    UFLG厚    LFLG幅    LFLG厚",
};
constexpr std::string_view kFormats604[] = {
    "  %-9s %-9s %-9s %10s %9s %9s %9s %9s %9s",
};
constexpr std::string_view kComments605[] = {
    "! 主桁始    主桁終    横桁始    横桁終    分割数 一般部幅 板厚  格点上幅 板厚   間隔(分割数分)",
};
constexpr std::string_view kFormats605[] = {
    "  %-9s %-9s %-9s %-9s %6s %6s %6s %6s %6s %6s",
};
constexpr std::string_view kComments606[] = {
    "! 主桁始    主桁終    横桁始    横桁終       上幅 上板厚   下幅 下板厚 分割数    上本数       下本数",
};
constexpr std::string_view kFormats606[] = {
    "  %-9s %-9s %-9s %-9s  %6s %6s %6s %6s %6s   %1s",
};
constexpr std::string_view kComments607[] = {
    "! 横桁始    横桁終    桁形式         左幅      右幅  (横桁UFLG-床版  横桁UFLG-LFLG  横桁LFLG-主桁LFLG)",
};
constexpr std::string_view kFormats607[] = {
    "  %-9s %-9s %-9s %15s %10s %15s %15s %15s",
};
constexpr std::string_view kComments608[] = {
    "! 主桁始    主桁終    横桁始    横桁終         V板幅     V板厚",
};
constexpr std::string_view kFormats608[] = {
    "  %-9s %-9s %-9s %-9s %10s %9s",
};
constexpr std::string_view kComments609[] = {
    "! 支点   セット方向         セット方向バネ      直角バネ        鉛直バネ",
};
constexpr std::string_view kFormats609[] = {
    "  %-9s %-9s %16s %15s %15s",
};
constexpr std::string_view kComments610[] = {
    "! 横桁始    横桁終    主桁始    主桁終    種別",
};
constexpr std::string_view kFormats610[] = {
    "  %-9s %-9s %-9s %-9s %-1s",
};
constexpr std::string_view kComments611[] = {
    "! 主桁始    主桁終    横桁始    横桁終      主桁高さ",
};
constexpr std::string_view kFormats611[] = {
    "  %-9s %-9s %-9s %-9s  %9s",
};
constexpr std::string_view kComments612[] = {
    "! 横桁始    横桁終    主桁始    主桁終    左右両    SZ_U･H_SWAY  SZ_L･H_SWAY",
};
constexpr std::string_view kFormats612[] = {
    "  %-9s %-9s %-9s %-9s %-9s  %9s  %8s",
};
constexpr std::string_view kComments613[] = {
    "! 横桁始    横桁終    主桁始    主桁終    左右両    連結形式 (入込方向)",
};
constexpr std::string_view kFormats613[] = {
    "  %-9s %-9s %-9s %-9s %-9s %-9s %-1s",
};
constexpr std::string_view kComments621[] = {
    "! 横桁始    横桁終    主桁始    主桁終       WEB厚  UFLG幅  UFLG厚  LFLG幅  LFLG厚",
};
constexpr std::string_view kFormats621[] = {
    "  %-9s %-9s %-9s %-9s %8s %7s %7s %7s %7s",
};
constexpr std::string_view kComments622[] = {
    "! 横桁始    横桁終    主桁始    主桁終    左右両    上下       B       T       L",
};
constexpr std::string_view kFormats622[] = {
    "  %-9s %-9s %-9s %-9s %-9s %-7s %4s %7s %7s",
};
constexpr std::string_view kComments623[] = {
    "! 横桁始    横桁終    主桁始    主桁終  上下斜    種別       H       B      T1      T2       V  (CT斜材取付)",
};
constexpr std::string_view kFormats623[] = {
    "  %-9s %-9s %-9s %-9s  %-7s %-7s %4s %7s %7s %7s %7s %4s",
};
constexpr std::string_view kComments624[] = {
    "! 横桁始    横桁終    主桁始    主桁終    左右両    上下       T       H       L",
};
constexpr std::string_view kFormats624[] = {
    "  %-9s %-9s %-9s %-9s %-9s %-4s %7s %7s %7s",
};
constexpr std::string_view kComments625[] = {
    "! 横桁始    横桁終    主桁始    主桁終           T      BL      BR",
};
constexpr std::string_view kFormats625[] = {
    "  %-9s %-9s %-9s %-9s %8s %7s %7s",
};
constexpr std::string_view kComments631[] = {
    "! 主桁始    主桁終    横桁始    横桁終    始位置    終位置",
};
constexpr std::string_view kFormats631[] = {
    "  %-9s %-9s %-9s %-9s %-9s %-1s",
};
constexpr std::string_view kComments632[] = {
    "! 主桁始    主桁終    横桁始    横桁終    格点_中間_両  左右両       H     T     BL     BR    (W)",
};
constexpr std::string_view kFormats632[] = {
    "  %-9s %-9s %-9s %-9s %-13s %-1s %6s %6s %6s %6s %6s",
};
constexpr std::string_view kComments633[] = {
    "! 主桁始    主桁終    横桁始    横桁終    種別             H       B      T1      T2",
};
constexpr std::string_view kFormats633[] = {
    "  %-9s %-9s %-9s %-9s %-9s  %7s %7s %7s %7s",
};
constexpr std::string_view kComments641[] = {
    "! 縦桁名  横桁始   横桁終",
};
constexpr std::string_view kFormats641[] = {
    "  %-9s %-9s %1s",
};
constexpr std::string_view kComments642[] = {
    "! 縦桁名  横桁始  横桁終  左支持   右支持    L1     L2  ハンチ高  床版厚  舗装厚   詰材  線荷P1 Name1  線荷P2 Name2  線荷P3 Name3",
    "! 側縦桁名 横桁始 横桁終  左支持   右支持  張出長",
};
constexpr std::string_view kFormats642[] = {
    "  %-9s %-9s %-9s %-9s %-9s %4s %4s %4s %4s %4s %4s %4s %4s %4s %4s %4s %1s",
};
constexpr std::string_view kComments643[] = {
    "! 縦桁始    縦桁終    横桁始    横桁終         始ZU      終ZU    横断差    間隔     始側角度  終側角度",
};
constexpr std::string_view kFormats643[] = {
    "  %-9s %-9s %-9s %-9s %9s %9s %9s %9s %9s %9s",
};
constexpr std::string_view kComments644[] = {
    "! 縦桁始    縦桁終    横桁始    横桁終         HB       HE   WEB厚  UFLG幅  UFLG厚  LFLG幅  LFLG厚   W材質     (UF材質  LF材質)  H形鋼",
};
constexpr std::string_view kFormats644[] = {
    "  %-9s %-9s %-9s %-9s %7s %7s %7s %7s %7s %7s %7s %9s %9s %9s %9s",
};
constexpr std::string_view kComments645[] = {
    "! 縦桁始    縦桁終    横桁始    横桁終      VS本数       幅       厚     材質   始終両   ﾋﾟｯﾁ(列数分)",
    "! 縦桁始    縦桁終    横桁始    横桁終      横断線上     幅       厚     材質   始終両",
};
constexpr std::string_view kFormats645[] = {
    "  %-9s %-9s %-9s %-9s %8s %8s %8s %9s %7s %8s",
};
constexpr std::string_view kComments646[] = {
    "! 縦桁始    縦桁終    横桁始    横桁終      始終両       幅       厚     材質     上段数&下段数",
};
constexpr std::string_view kFormats646[] = {
    "  %-9s %-9s %-9s %-9s %8s %8s %8s %8s %8s",
};
constexpr std::string_view kComments647[] = {
    "! 縦桁始    縦桁終    横桁始    横桁終          TU       TL       TW       BU       BL       HW",
};
constexpr std::string_view kFormats647[] = {
    "  %-9s %-9s %-9s %-9s %8s %8s %8s %8s %8s %8s",
};
constexpr std::string_view kComments648[] = {
    "! 縦桁始    縦桁終    横桁始    横桁終          幅       厚     材質     WEB溶接   LFLG溶接",
};
constexpr std::string_view kFormats648[] = {
    "  %-9s %-9s %-9s %-9s %8s %8s %8s %8s %8s",
};
constexpr std::string_view kComments649[] = {
    "! 縦桁始    縦桁終    横桁始    横桁終      始終両   始上段数    下段数    BL       TL  終上段数   下段数      BR       TR",
};
constexpr std::string_view kFormats649[] = {
    "  %-9s %-9s %-9s %-9s %8s %8s %8s %8s %8s %8s %8s %8s %8s %8s %8s %8s %8s",
};
constexpr std::string_view kComments651[] = {
    "! 縦桁始    縦桁終    横桁始    横桁終      左右両     連結形式  (入込方向 UFLG縁向き LFLG縁向き)  継手名",
};
constexpr std::string_view kFormats651[] = {
    "  %-9s %-9s %-9s %-9s %8s %8s %8s %8s %8s %1s",
};
constexpr std::string_view kComments652[] = {
    "! 縦桁始    縦桁終    横桁始    横桁終      左右両     上下    W番号   (材質)",
    "! 縦桁始    縦桁終    横桁始    横桁終      左右両     上下    C番号   (材質)    (向き コネクション幅 厚    入込)",
};
constexpr std::string_view kFormats652[] = {
    "  %-9s %-9s %-9s %-9s %8s %8s %8s %8s %8s %8s %8s %8s",
};
constexpr std::string_view kComments653[] = {
    "! 縦桁始    縦桁終    横桁始    横桁終      左右両     上下        B       T     (R_CENTER    BR       R       DIS       B2)",
};
constexpr std::string_view kFormats653[] = {
    "  %-9s %-9s %-9s %-9s %8s %8s %8s %8s %8s %8s %8s %8s %8s",
};
constexpr std::string_view kComments654[] = {
    "! 縦桁始 縦桁終 横桁始 横桁終  左右両   上下 呼び(等級) 孔引き形式 FLG本数 FLG行数 (ｺﾈｸｼｮﾝ行数 列数)",
};
constexpr std::string_view kFormats654[] = {
    "  %-9s %-9s %-9s %-9s %8s %8s %8s %8s %8s %8s %8s %8s",
};
constexpr std::string_view kComments655[] = {
    "! 縦桁始 縦桁終 横桁始 横桁終 左右両   上下   Lfc   Lfd   LfeL  LfeR   Bfc   Bfe  (Lgc   Lgd   Lge   Bgd   Bge)",
};
constexpr std::string_view kFormats655[] = {
    "  %-9s %-9s %-9s %-9s %8s %8s %8s %8s %8s %8s %8s %8s %8s %8s %8s %8s %8s",
};
constexpr std::string_view kComments656[] = {
    "! 縦桁始    縦桁終    横桁始    横桁終      左右両   呼び(等級)  列数    割数       Ld       Le       DU       DL   ピッチ(割数分)",
};
constexpr std::string_view kFormats656[] = {
    "  %-9s %-9s %-9s %-9s %8s %8s %8s %8s %8s %8s %8s %8s %8s",
};
constexpr std::string_view kComments657[] = {
    "! 縦桁始    縦桁終    横桁始    横桁終      左右両  [U･L]FLG・WEB T1       T2       B1       B2        L      (GB1,  GB2,  GL)",
};
constexpr std::string_view kFormats657[] = {
    "  %-9s %-9s %-9s %-9s %8s %8s %8s %8s %8s %8s %8s %8s %8s %8s",
};
constexpr std::string_view kComments658[] = {
    "! 縦桁始    縦桁終    横桁始    横桁終      左右両   [U･L]FLG  呼び(等級) FLG本数  孔引き形式 (GFLG本数, G孔引)",
    "! 縦桁始    縦桁終    横桁始    横桁終      左右両      WEB    呼び(等級) WEB列数  WEB割数",
};
constexpr std::string_view kFormats658[] = {
    "  %-9s %-9s %-9s %-9s %8s %8s %8s %8s %8s %8s %8s",
};
constexpr std::string_view kComments659[] = {
    "! 縦桁始    縦桁終    横桁始    横桁終      左右両    [U･L]FLG    Lc       Ld       Le       Bc       Be     (GLc,     GLd,     Gle,      GBc,      GBe)",
};
constexpr std::string_view kFormats659[] = {
    "  %-9s %-9s %-9s %-9s %8s %8s %8s %8s %8s %8s %8s %8s %8s %8s",
};
constexpr std::string_view kComments660[] = {
    "! 縦桁始   縦桁終    横桁始    横桁終      左右両       DU1     DU12     DL12      DL1       DC       DX       (H)    DU23      DL23      BU01     BL01",
};
constexpr std::string_view kFormats660[] = {
    "  %-9s %-9s %-9s %-9s %8s %8s %8s %8s %8s %8s %8s %8s %8s %8s %8s %8s",
};
constexpr std::string_view kComments661[] = {
    "! 縦桁始    縦桁終    横桁始    横桁終      左右両      BU1      BU2        L       LU      Dis      RU1      RU2      DU1      DU2      (BL1     BL2      RL1      RL2      DL1        DL2)",
};
constexpr std::string_view kFormats661[] = {
    "  %-9s %-9s %-9s %-9s %8s %8s %8s %8s %8s %8s %8s %8s %8s %8s %8s %8s %8s %8s %8s %8s",
};
constexpr std::string_view kComments662[] = {
    "! 自動手動  スラブ止め_RB     径d      長さL      端寸法H  始位置標準  標準間隔     D_SPL  (溶接長s)    -",
    "! 自動手動  スラブ止め_FB     厚t      長さL        幅B    始位置標準  標準間隔     D_SPL  (溶接長s)  (端寸法H)",
    "! 自動手動  スタッドジベル    径d      長さL        径D    頭部厚t    FLG縁端距離  D_SPL   (W)         -",
};
constexpr std::string_view kRowComments662[] = {
    "! 縦桁 縦桁終 横桁始 横桁終 始位置D  n1  間隔1     n2  間隔2     n3 間隔3, ・・・",
};
constexpr std::string_view kFormats662[] = {
    "  %4s  %-14s %10s %10s %10s %10s %10s %10s %10s %10s",
    "  %-9s %-9s %-9s %-9s %8s %8s %8s %8s %8s %8s %8s",
};
constexpr std::string_view kComments665[] = {
    "! 縦桁始    縦桁終    横桁始    横桁終      左右両      上下      Br        R      Dis  傾斜(YES_NO)  Df       DR       Dh       Dv",
};
constexpr std::string_view kFormats665[] = {
    "  %-9s %-9s %-9s %-9s %8s %8s %8s %8s %8s %8s %8s %8s %8s %8s",
};
constexpr std::string_view kComments666[] = {
    "! 縦桁始    縦桁終    横桁始    横桁終        上下       HL       HR",
};
constexpr std::string_view kFormats666[] = {
    "  %-9s %-9s %-9s %-9s %8s %8s %8s",
};
constexpr std::string_view kComments668[] = {
    "! 縦桁始    縦桁終  若番横桁名  出力      GROUP名",
};
constexpr std::string_view kFormats668[] = {
    "  %-9s %-9s %-9s %-9s %1s",
};
constexpr std::string_view kComments669[] = {
    "! 縦桁始    縦桁終    横桁名",
};
constexpr std::string_view kFormats669[] = {
    "  %-9s %-9s %1s",
};
constexpr std::string_view kComments671[] = {
    "! 横桁始  横桁終  左右両   Mw風荷重  Mco衝突    間隔  張出 ハンチ高 床版厚  舗装車 舗装歩 歩道幅 歩道高 地覆幅 地覆高  P21名  P21  B21  P22名  P22  B22  P23名  P23  B23  P24名  P24  B24  P25名  P25  B25",
};
constexpr std::string_view kFormats671[] = {
    "  %-9s %-9s %-3s %6s %6s %6s %6s %6s %6s %6s %6s %6s %6s %6s %6s %6s %6s %6s %6s %6s %6s %6s %6s %6s %6s %6s %6s %6s %6s %6s",
};
constexpr std::string_view kComments672[] = {
    "! 横桁始  横桁終  左右両    横断差     張出長   入込方向  縦桁側上角度  縦側下角度  主桁側上角度  主側下角度",
};
constexpr std::string_view kFormats672[] = {
    "  %-9s %-9s %-3s %8s %10s   %-6s %12s %12s %12s %12s",
};
constexpr std::string_view kComments673[] = {
    "! 横桁始 横桁終 左右両 主側上Z  主GBU  GTU  GTW  GT1  G勾配 (縦上Z  下Z  SBU  STU  SBL  STL  STW  SBV  STV)",
};
constexpr std::string_view kFormats673[] = {
    "  %-9s %-9s %-3s %8s %8s %8s %8s %8s %8s ",
    "  %-9s %-9s %-3s %8s %8s %8s %8s %8s %8s %8s %1s %1s %1s  %8s %8s %8s %8s %1s",
};
constexpr std::string_view kComments674[] = {
    "! 横桁始  横桁終  左右両     HG        HS      WEB厚   UFLG幅   UFLG厚   LFLG幅   LFLG厚 W材質 (UF材質  LF材質)",
};
constexpr std::string_view kFormats674[] = {
    "  %-9s %-9s %-3s %8s %8s %8s %8s %8s %8s %8s %1s",
    "  %-9s %-9s %-3s %8s %8s %8s %8s %8s %8s %8s %1s %1s %1s",
};
constexpr std::string_view kComments675[] = {
    "! 横桁始      横桁終   左右両   呼び(等級)  縦桁側片行数  縦桁側列数  孔引き形式   FLG全本数  FLG片行数",
};
constexpr std::string_view kFormats675[] = {
    "  %-9s %-9s %-9s %-9s %7s %7s %7s %7s %7s %7s %7s %7s %7s %7s %7s %7s %7s %7s %7s %7s %7s",
};
constexpr std::string_view kComments676[] = {
    "! 横桁始  横桁終  左右両   呼び(等級)      割数     Lv       Ld       Le       DU       DL  (等間隔・ピッチ(割数分))",
};
constexpr std::string_view kFormats676[] = {
    "  %-9s %-9s %-4s %-10s %8s %8s %8s %8s %8s %8s %1s",
};
constexpr std::string_view kComments677[] = {
    "! 横桁始      横桁終   左右両      [U･L]FLG・WEB    T1     T2     B1      B2      L",
};
constexpr std::string_view kFormats677[] = {
    "  %-9s %-9s %-9s %-9s  %8s  %8s  %8s  %8s  %8s",
};
constexpr std::string_view kComments678[] = {
    "! 横桁始      横桁終   左右両      [U･L]FLG    呼び(等級)    FLG本数     孔引き形式",
};
constexpr std::string_view kFormats678[] = {
    "  %-9s %-9s %-9s %-9s %-9s  %9s  %8s",
};
constexpr std::string_view kComments679[] = {
    "! 横桁始      横桁終   左右両      [U･L]FLG    Lc    Ld    Le     Bc    Be",
};
constexpr std::string_view kFormats679[] = {
    "  %-9s %-9s %-9s %-9s  %8s  %8s  %8s  %8s  %8s",
};
constexpr std::string_view kComments680[] = {
    "! 横桁始      横桁終   左右両      DU1    DU12    DL12    DL1   DC    DX   (H)   DU23   DL23  BU01   BL01",
};
constexpr std::string_view kFormats680[] = {
    "  %-9s %-9s %-9s %9s %9s %9s %9s %9s %9s %9s %9s %9s %9s %9s",
};
constexpr std::string_view kComments681[] = {
    "! 横桁始  横桁終  左右両    [U][L]FLG    L     DIS      B1     B2     R1     R2     D1    D2",
};
constexpr std::string_view kFormats681[] = {
    "  %-9s %-9s %-4s  %1s   %8s %6s %6s %6s %6s %6s %6s",
    "  %-9s %-9s %-4s  %1s   %8s %6s %6s %6s %6s %6s %6s %6s",
};
constexpr std::string_view kComments682[] = {
    "! 横桁始  横桁終  左右両       VS本数     幅     厚    材質   始終両  等分割・ﾋﾟｯﾁ(列数分)",
};
constexpr std::string_view kFormats682[] = {
    "  %-9s %-9s %-9s %8s %6s %6s %-10s %-6s %1s",
};
constexpr std::string_view kComments683[] = {
    "! 横桁始  横桁終  左右両         幅     厚     材質   始終両  上段数      下段数",
};
constexpr std::string_view kFormats683[] = {
    "  %-9s %-9s %-9s %6s %6s %-10s %-6s %1s",
};
constexpr std::string_view kComments689[] = {
    "! 横桁始  横桁終  左右両      YES/NO(出力)   GROUP名",
};
constexpr std::string_view kFormats689[] = {
    "  %-9s %-9s %-9s %-9s %1s",
};
constexpr std::string_view kComments703[] = {
    "! 支承線始  支承線終  主桁始    主桁終    ｸﾞﾙｰﾌﾟ名   (No.)",
};
constexpr std::string_view kFormats703[] = {
    "  %-9s %-9s %-9s %-9s %8s",
};
constexpr std::string_view kComments704[] = {
    "! 支承線    荷重分担率(%)",
};
constexpr std::string_view kFormats704[] = {
    "  %-9s %12s",
};
constexpr std::string_view kComments705[] = {
    "! 支承線名    水平力(kN)   鉛直反力(kN)",
};
constexpr std::string_view kFormats705[] = {
    "  %-9s %12s %12s",
};
constexpr std::string_view kComments706[] = {
    "! 支承線始  支承線終  主桁始    主桁終              距離",
};
constexpr std::string_view kFormats706[] = {
    "  %-9s %-9s %-9s %-9s %14s",
};
constexpr std::string_view kComments707[] = {
    "! 支承線始  主桁           死荷重(kN)     活荷重(kN)    (実横桁)",
    "! 支承線    主桁          死荷重1(kN)    活荷重1(kN)     死荷重1(kN)    活荷重2(kN)   (実横桁)",
};
constexpr std::string_view kFormats707[] = {
    "  %-9s %-9s  %14s %14s",
    "  %-9s %-9s  %14s %14s   %1s",
    "  %-9s %-9s %14s %14s %14s %14s",
    "  %-9s %-9s %14s %14s %14s %14s   %1s",
};
constexpr std::string_view kComments708[] = {
    "! ｸﾞﾙｰﾌﾟ名    常時R   風時鉛直R     地震時鉛直R    風時M   地震時M   (補強ﾘﾌﾞ鉛直R)",
};
constexpr std::string_view kFormats708[] = {
    "  %-9s %-9s %-9s %-9s %9s %9s %9s",
};
constexpr std::string_view kComments711[] = {
    "! 支承線始  支承線終  主桁始    主桁終        WEB高     WEB厚  WEB材質   下FLG厚   H-G距離",
    "! ｸﾞﾙｰﾌﾟ名  0         0         0             WEB高     WEB厚  WEB材質   下FLG厚   H-G距離",
};
constexpr std::string_view kFormats711[] = {
    "  %-9s %-9s %-9s %-9s %9s %9s  %1s  %9s %9s",
};
constexpr std::string_view kComments713[] = {
    "! 主桁始    主桁始    横桁始    横桁終    CASE1  材質       間隔     高H     厚t     幅B      DH      DB   WEB溶接  LFLG溶接",
    "! 主桁始    主桁始    横桁始    横桁終    CASE2  材質       間隔     高H     厚t     幅B   FLG幅   FLG厚   WEB溶接  LFLG溶接",
};
constexpr std::string_view kFormats713[] = {
    "  %-9s %-9s %-9s %-9s %-6s %-7s %7s %7s %7s %7s %7s %7s   %-8s %1s",
    "  %-9s %-9s %-9s %-9s %-6s %-7s %7s %7s %7s %7s %7s %7s   %-8s %7s %7s",
};
constexpr std::string_view kComments723[] = {
    "! 主桁始 主桁終 横桁始 横桁終  [U･L]FLG   材質      B1    B2    BL    BR    TF",
    "! 主桁始 主桁終 横桁始 横桁終  WEB        材質      HL    HR   TWL   TWR    ZL  (直TWL TWR)",
};
constexpr std::string_view kFormats723[] = {
    "  %-9s %-9s %-9s %-9s %9s %9s %7s %7s %7s %7s %7s %7s %7s",
};
constexpr std::string_view kComments724[] = {
    "! 主桁始 主桁終 横桁始 横桁終  左右両    DU     DL    BU1   BU2    TU    BL1   BL2    TL",
};
constexpr std::string_view kFormats724[] = {
    "  %-9s %-9s %-9s %-9s %6s %7s %7s %7s %7s %7s %7s %7s %7s",
};
constexpr std::string_view kComments725[] = {
    "! 主桁始 主桁終 横桁始 横桁終  位置        ﾀｲﾌﾟ(U)  連続(YES_NO)   B    H    T    R  本数        間隔(本数分or等分割)",
};
constexpr std::string_view kFormats725[] = {
    "  %-9s %-9s %-9s %-9s %-9s %6s %6s %6s %6s %6s %6s %6s %1s",
};
constexpr std::string_view kComments726[] = {
    "! 主桁始 主桁終 横桁始 横桁終   等価支間長m    上部欠損高mm   下部欠損高mm   支間長m",
};
constexpr std::string_view kFormats726[] = {
    "  %-9s %-9s %-9s %-9s %7s %7s %7s %7s",
};
constexpr std::string_view kComments731[] = {
    "! 主桁始 主桁終 横桁始 横桁終   支承数   (材質    板厚   WEB溶接) ",
};
constexpr std::string_view kFormats731[] = {
    "  %-9s %-9s %-9s %-9s %9s %9s %9s %9s ",
};
constexpr std::string_view kComments734[] = {
    "! 主桁始 主桁終 横桁始 横桁終  左右両   材質    幅     厚     DIA溶接    LFLG溶接   長さ_切欠長  (列数   間隔)",
};
constexpr std::string_view kFormats734[] = {
    "  %-9s %-9s %-9s %-9s %9s %9s %9s %9s %9s %9s %9s %9s %9s",
};
constexpr std::string_view kComments735[] = {
    "! 主桁始 主桁終 横桁始 横桁終  設置   (X距離  Y距離  HOLE高  HOLE幅  始終両  補強幅  補強厚  隙間  補強幅H)",
};
constexpr std::string_view kFormats735[] = {
    "  %-9s %-9s %-9s %-9s %9s %9s %9s %9s %9s %9s %9s %9s %9s %9s",
};
constexpr std::string_view kComments741[] = {
    "! 主桁始 主桁終 横桁始 横桁終  設置   (X距離  Y距離  HOLE高  HOLE幅  始終両  補強幅  補強厚  隙間)",
};
constexpr std::string_view kFormats741[] = {
    "  %-9s %-9s %-9s %-9s %9s %9s %9s %9s",
};
constexpr std::string_view kComments742[] = {
    "! 主桁始    主桁終   横桁始    横桁終    床版厚(mm)    ダイヤ間隔(m)    曲率半径(m)    (主桁曲げM(kN.m))",
};
constexpr std::string_view kFormats742[] = {
    "  %-9s %-9s %-9s %-9s %9s %9s %9s %9s",
};
constexpr std::string_view kComments743[] = {
    "      ! 主桁始 主桁終 横桁始 横桁終 左右両 一般_片持 車道幅 歩道幅 部分等分布P1  載荷長  等分布P2  (群集荷重)  (曲げﾓｰﾒﾝ?",
};
constexpr std::string_view kFormats743[] = {
    "  %-9s %-9s %-9s %-9s %9s %9s %9s %9s %9s %9s %9s %9s %9s",
};
constexpr std::string_view kComments744[] = {
    "! 主桁始 主桁終 横桁始 横桁終 開口種別   X距離  Y距離   開口高   開口幅   (R半径)",
};
constexpr std::string_view kFormats744[] = {
    "  %-9s %-9s %-9s %-9s %9s %9s %9s %9s %9s %9s",
};
constexpr std::string_view kComments745[] = {
    " ! 主桁始 主桁終 横桁始 横桁終  始終両  水平(上下)  開口隙間  板幅L  板厚  板幅R     左突出   右突出",
    " ! 主桁始 主桁終 横桁始 横桁終  始終両  垂直(左右)  開口隙間  板幅           板厚",
};
constexpr std::string_view kFormats745[] = {
    "  %-9s %-9s %-9s %-9s %9s %9s %9s %9s %9s %9s %9s %9s",
};
constexpr std::string_view kComments746[] = {
    " ! 主桁始 主桁終 横桁始 横桁終  始終両  位置  押え距離  WEB側幅  開口側幅  板厚",
};
constexpr std::string_view kFormats746[] = {
    "  %-9s %-9s %-9s %-9s %9s %9s %9s %9s %9s %9s ",
};
constexpr std::string_view kComments747[] = {
    " ! 主桁始 主桁終 横桁始 横桁終  HU幅  HU厚   HL幅  HL厚   (VL幅  VL厚   VR幅  VR厚)",
};
constexpr std::string_view kFormats747[] = {
    "  %-9s %-9s %-9s %-9s %9s %9s %9s %9s %9s %9s  %9s %9s",
};
constexpr std::string_view kComments751[] = {
    " ! 主桁始 主桁終 横桁始 横桁終  始終両 上下 左右押えタイプ  ZL    ZR   HL   HR   長さ   幅   厚",
};
constexpr std::string_view kFormats751[] = {
    "  %-9s %-9s %-9s %-9s %9s %9s %9s %9s %9s %9s %9s %9s %9s %9s",
};
constexpr std::string_view kComments752[] = {
    " ! 主桁始 主桁終 横桁始 横桁終  始終両 左右 上下押えタイプ   HU    HL   ZU   ZL   長さ    幅    厚",
};
constexpr std::string_view kFormats752[] = {
    "  %-9s %-9s %-9s %-9s %9s %9s %9s %9s %9s %9s %9s %9s %9s %9s",
};

constexpr RawSectionLayout kLayouts[] = {
    // block, least rows (0: always), trailing blanks cut, rule, header, comments, comments behind row 0, row formats, end
    {304, 1, true, ShortestThatHolds, "[SEC_LIMIT_VALUE] 304 入力任意  各桁の板幅，板厚，材質の最大，最小値の指定(最小値 0の活用)", kComments304, {}, kFormats304, "[END_SEC_LIMIT_VALUE] 入力行数制限なし( 最大値 0 時, [SEC_OPTION]の指定値を用いる)"},
    {305, 1, true, ShortestThatHolds, "[SEC_BOX_WEB]  305  主桁の左右腹板名", kComments305, {}, kFormats305, "[END SEC_BOX_WEB]"},
    {306, 2, true, ShortestThatHolds, "[SEC_LOAD_DEF]  306  入力任意", kComments306, {}, kFormats306, "[END_SEC_LOAD_DEF]"},
    {307, 1, true, ShortestThatHolds, "[SEC_DEL_DISCONTINUS_POINT_POINT] 307.支点定義・不連続点及び支点モーメント低減", kComments307, {}, kFormats307, "[END_SEC_DEL_DISCONTINUS_POINT_POINT] 入力行数制限なし"},
    {311, 1, false, RecordsOfTheirOwn, "[SEC_H_GIRDER] 311  入力必須", {}, {}, {}, "[END_SEC_H_GIRDER]  入力行数制限なし. (X_LFLG, X_UFLG=接線勾配０点と横桁始との距離(直線の場合=0))"},
    {312, 1, true, ShortestThatHolds, "[SEC_Z_HEIGHT] 312  入力任意", kComments312, {}, kFormats312, "[END_SEC_Z_HEIGHT] 入力行数制限なし"},
    {313, 2, true, ShortestThatHolds, "[SEC_V_STIFF] 313 入力任意  垂直補剛材の配置本数，寸法及びVS間隔：　等間隔or空白 -> n+1 等分割", kComments313, {}, kFormats313, "[END_SEC_V_STIFF] 箱桁の場合, 左右腹板入力(両腹板=基準線上)"},
    {314, 2, true, ShortestThatHolds, "[SEC_S_STIFF] 314  入力必要  支点(格点)上垂直補剛材寸法及び材質", kComments314, {}, kFormats314, "[END_SEC_S_STIFF]"},
    {315, 2, true, ShortestThatHolds, "[SEC_H_STIFF] 315 入力任意  本数前にL,Rを付けること．　左(右)からn本水平補剛材:    Ln (Rn)", kComments315, {}, kFormats315, "[END_SEC_H_STIFF] 箱桁の場合,左右腹板入力"},
    {316, 2, true, ShortestThatHolds, "[SEC_NAME_H_SWAY] 316. 各ライン名・高さ・勾配・舗装高の入力（横断の定義）  寸法単位mm,勾配%", kComments316, {}, kFormats316, "[END SEC_NAME_H_SWAY]"},
    {321, 2, true, CommentByInputMethod, "[SEC_SPLICE_POINT] 321 入力任意  間隔=C or CENTERは補剛材間か横桁間の中心，値の場合，間隔=入力値", kComments321, {}, kFormats321, "[END_SEC_SPLICE_POINT] 箱桁の場合, 左右腹板入力"},
    {322, 2, true, CommentByInputMethod, "[SEC_SECTION_POINT] 322 入力任意  間隔=C or CENTERは補剛材間か横桁間の中心，値の場合，間隔=入力値", kComments322, {}, kFormats322, "[END_SEC_SECTION_POINT] 箱桁の場合, 左右腹板入力"},
    {323, 1, true, ShortestThatHolds, "[SEC_GROUP] 323.主桁GROUPの設定", kComments323, {}, kFormats323, "[END SEC_GROUP]   入力行数制限なし"},
    {324, 1, false, RecordsOfTheirOwn, "[SEC_CROSS_RIB] 324.入力任意(箱桁)  横リブの配置本数及び間隔(FLG = UFLG & LFLG)", {}, {}, {}, "[END SEC_CROSS_RIB] 324.横リブ"},
    {325, 1, false, RecordsOfTheirOwn, "[SEC_NUMBER_L_RIB] 325.入力任意(箱桁)  縦リブの配置本数及び間隔", {}, {}, {}, "[END_SEC_NUMBER_L_RIB 325.入力任意(箱桁)  縦リブの配置本数及び間隔"},
    {326, 2, true, ShortestThatHolds, "[SEC_SIZE_L_RIB] 326 入力任意(箱桁)  各断面内の縦リブの寸法 (FLG = UFLG & LFLG)", kComments326, {}, kFormats326, "[END SEC_SIZE_L_RIB] 入力行数制限なし"},
    {327, 2, true, ShortestThatHolds, "[SEC_FIXED_DISTANCE]  327 入力任意  FLG固定点距離の入力或は出力(上下フランジ同じ場合，データは１個でいい)", kComments327, {}, kFormats327, "[END_SEC_FIXED_DISTANCE] 入力行数制限なし"},
    {328, 2, true, ShortestThatHolds, "[SEC_RADIUS] 328 入力任意  FLG固定点距離の入力或は出力", kComments328, {}, kFormats328, "[END_SEC_RADIUS] 入力行数制限なし"},
    {329, 1, true, ShortestThatHolds, "[SEC_IMAGINATION_POINT] 329 入力任意  仮想点の指定", kComments329, {}, kFormats329, "[END_SEC_IMAGINATION] 入力行数制限なし"},
    {331, 2, true, ShortestThatHolds, "[SEC_WEB_T_MAT] 331.WEBの厚及び材質の入力（鈑桁，箱桁）", kComments331, {}, kFormats331, "[END SEC_WEB_T_MAT] 入力行数制限なし"},
    {332, 2, true, ShortestThatHolds, "[SEC_FLG_B_T_MAT] 332.上下フランジの幅，板厚，材質（鈑桁，箱桁）", kComments332, {}, kFormats332, "[END_SEC_FLG_B_T_MAT] 入力行数制限なし"},
    {333, 2, true, ShortestThatHolds, "[SEC_BOX_OTHER] 333.箱桁その他寸法の入力 (左側横断差, 左右突出長は入力必要)", kComments333, {}, kFormats333, "[END SEC_BOX_OTHER] 横断差,間隔を自動で入力する場合線形結果から自動計算(HL_L= HL_R=0.0)"},
    {334, 2, true, ShortestThatHolds, "[SEC_BOX_DIA_DZ] 334.箱桁ダイヤフラムDZの入力 (左側横断差は入力必要・製図用)", kComments334, {}, kFormats334, "[END SEC_BOX_DIA_DZ] ”直角方向の値”の場合は直角方向の値(箱桁その他寸法[SEC_BOX_OTHER])を用いる."},
    {335, 1, true, ControlRowFirst, "[SEC_SLAB_COMPOSITE] 335.合成桁床版有効幅・全幅・高さ，ハンチ高さ", kComments335, kRowComments335, kFormats335, "[END SEC_SLAB_COMPOSITE] 335.合成桁床版有効幅・全幅・高さ，ハンチ高さ"},
    {336, 1, true, ControlRowFirst, "[SEC_SLAB_REINFORCING_BAR] 336.合成桁床版配慮鉄筋の設置", kComments336, kRowComments336, kFormats336, "[END SEC_SLAB_REINFOCING_BAR]\t336.合成桁床版の配力鉄筋"},
    {337, 1, true, ControlRowFirst, "[SEC_SLAB_CREEP_ETC_FORCE] 337.合成桁不静定力(仮定値)", kComments337, kRowComments337, kFormats337, "[END SEC_SLAB_CREEP_ETC_FORCE] 337.合成桁不静定力(仮定値)"},
    {338, 1, true, ControlRowFirst, "[SEC_SLAB_AND_GIRDER] 338.合成桁重ね合せ照査(主桁作用と床版作用)", kComments338, kRowComments338, kFormats338, "[END SEC_SLAB_AND_GIRDER] 338.合成桁重ね合せ照査(主桁作用と床版作用)"},
    {339, 1, true, ShortestThatHolds, "[SEC_SLAB_MIN_REINFORCE] 339.合成桁最小鉄筋量の照査", kComments339, {}, kFormats339, "[END SEC_SLAB_MIN_REINFORCE] 339.合成桁最小鉄筋量の照査"},
    {340, 1, true, ShortestThatHolds, "[SEC_SLAB_CRACK_SIZE] 340.合成桁ひび割れ幅の照査", kComments340, {}, kFormats340, "[END SEC_SLAB_CRACK_SIZE] 340.合成桁ひび割れ幅の照査"},
    {341, 2, true, ShortestThatHolds, "[SEC_BOLT_SPLICE] 341.入力任意: 全孔引き; 2,4,6孔引き; 24,46, 68孔引き;  千鳥", kComments341, {}, kFormats341, "[END_SEC_BOLT_SPLICE] 入力行数制限なし (ボルトの呼び=M20･M22･M24(S10T),(F10T),F(8T))"},
    {342, 2, true, ShortestThatHolds, "[SEC_PLATE_SPLICE] 342.入力任意 添接板の板厚，（幅,長さ）の入力", kComments342, {}, kFormats342, "[END_SEC_PLATE_SPLICE] 入力行数制限なし(LWEB,RWEBは出力されます)"},
    {343, 2, true, ShortestThatHolds, "[SEC_FLG_DIS_SPLICE] 343.入力任意 FLGボルト間隔の入力", kComments343, {}, kFormats343, "[END_SEC_FLG_DIS_SPLICE] 入力行数制限なし"},
    {344, 2, true, ShortestThatHolds, "[SEC_WEB_DIS_SPLICE] 344.入力任意 (DL1)上(下)縁･第１ボルト間隔；DU12(DL12)上(下)第１･２ボルト間隔", kComments344, {}, kFormats344, "[END_SEC_WEB_DIS_SPLICE] 入力行数制限なし WEBボルト間隔の入力"},
    {351, 1, true, ShortestThatHolds, "[SEC_CLASS_FATIGUE] 351.入力任意  疲労等級の入力.(最初の文字でいい．E(80)=E)", kComments351, {}, kFormats351, "[END_SEC_CLASS_FATIGUE] 入力行数制限なし"},
    {352, 1, false, ShortestThatHolds, "[SEC_Z_SWAY] 352.入力任意 SZ_U，SZ_L： 上下FLGと横桁上下FLGとの間隔(<1.0場合主桁高*入力値で計算)", kComments352, {}, kFormats352, "[END_SEC_Z_SWAY] 入力行数制限なし (SZ_UとSZ_Lのどちが <-200の場合，横桁高と意味します)"},
    {353, 1, true, ShortestThatHolds, "[SEC_Z_LATERAL] 353  入力任意 LZ_U，SZ_L： 上下FLGと上下横構ガセットとの間隔(なし-1)", kComments353, {}, kFormats353, "[END_SEC_Z_LATERAL] 入力行数制限なし"},
    {354, 1, true, ShortestThatHolds, "[SEC_Z_HANGING_FATIGUE]  354.入力任意 HZ_U，HZ_L： 上下FLG内側と上下側吊金具との間隔(0=なし)", kComments354, {}, kFormats354, "[END_SEC_Z_HANGING_FATIGUE] 入力行数制限なし"},
    {359, 2, true, ShortestThatHolds, "[SEC_2_AXIS_STRESS] 359.ニ軸応力照査（箱桁上フランジ） mm, kN/mm2", kComments359, {}, kFormats359, "[END_SEC_2_AXIS_STRESS] 359.ニ軸応力照査（箱桁上フランジ） mm, kN/mm2"},
    {259, 1, true, ShortestThatHolds, "[CAMBER] 259.キャンバーの出力", kComments259, {}, kFormats259, "[END CAMBER] 259.キャンバーの出力"},
    {291, 0, false, ShortestThatHolds, "[SEC_SF_MY]  291.断面力面内 MY (kN･m)", kComments291, {}, kFormats291, "[END_SEC_SF_MY] 291.断面力面内 MY"},
    {292, 0, false, ShortestThatHolds, "[SEC_SF_SZ]  292.断面力面内 SZ (kN)", kComments292, {}, kFormats292, "[END_SEC_SF_SZ] 292.断面力面内 SZ"},
    {293, 0, false, ShortestThatHolds, "[SEC_SF_MJ]  293.断面力捩り MJ (kN･m)", kComments293, {}, kFormats293, "[END_SEC_SF_MJ] 293.断面力捩り MJ"},
    {294, 0, false, ShortestThatHolds, "[SEC_SF_N]   294.断面力軸力 N  (kN)", kComments294, {}, kFormats294, "[END_SEC_SF_N]  294.断面力軸力 N"},
    {295, 0, false, ShortestThatHolds, "[SEC_SF_MZ]  295.断面力面外 MZ (kN･m)", kComments295, {}, kFormats295, "[END_SEC_SF_MZ] 295.断面力面外 MZ"},
    {296, 0, false, ShortestThatHolds, "[SEC_SF_SY]  296.断面力面外 SY (kN)", kComments296, {}, kFormats296, "[END_SEC_SF_SY] 296.断面力面外 SY"},
    {391, 0, false, ShortestThatHolds, "[SPL_SF_MY]  391.継手部面内 MY (kN･m)", kComments391, {}, kFormats391, "[END_SPL_SF_MY] 391.継手部面内 MY"},
    {392, 0, false, ShortestThatHolds, "[SPL_SF_SZ]  392.継手部面内 SZ (kN)", kComments392, {}, kFormats392, "[END_SPL_SF_MY] 392.継手部面内 SZ"},
    {393, 0, false, ShortestThatHolds, "[SPL_SF_MJ]  393.継手部捩り MJ (kN･m)", kComments393, {}, kFormats393, "[END_SPL_SF_MJ] 393.継手部捩り MJ"},
    {394, 0, false, ShortestThatHolds, "[SPL_SF_N]  394.継手部軸力 N (kN)", kComments394, {}, kFormats394, "[END_SPL_SF_N] 394.継手部軸力 N"},
    {395, 0, false, ShortestThatHolds, "[SPL_SF_MZ]  395.継手部面外 MZ (kN･m)", kComments395, {}, kFormats395, "[END_SPL_SF_MZ] 395.継手部面外 MZ"},
    {396, 0, false, ShortestThatHolds, "[SPL_SF_SY]  396.継手部面外 SY (kN)", kComments396, {}, kFormats396, "[END_SPL_SF_SY] 396.継手部面外 SY"},
    {402, 1, true, FirstRowApart, "[DRAW_STUD] 402.ずれ止め間隔の入力或は出力(D_SPL: 連結板との間隔(橋軸)； W: 鈑桁無効,箱桁はハンチ幅)", kComments402, kRowComments402, kFormats402, "[END DRAW_STUD]"},
    {403, 1, true, FirstRowApart, "[DRAW_WATER_DRIP] 403. 入力任意 水切りデータ(TYPE1:LG2=0; TYPE2: DY=0)", kComments403, kRowComments403, kFormats403, "[END DRAW_WATER_DRIP]"},
    {404, 1, true, ShortestThatHolds, "[DRAW_END_LENGTH] 404 入力任意  桁端寸法，垂直補剛材向き，水平補剛材向き", kComments404, {}, kFormats404, "[END_DRAW_END_LENGTH] 入力行数制限なし"},
    {405, 1, true, ShortestThatHolds, "[DRAW_SOLE_PL] 405 入力任意  ソールプレート（支承セット方向: 支点名 OR DX_DY_α", kComments405, {}, kFormats405, "[END_DRAW_SOLE_PL] (幅 OR幅_W2_R1_R2_R3_H2)  (本数 OR NX_P1_･･･_Pnx_NY_G1_･･･Gny)"},
    {407, 1, true, ShortestThatHolds, "[DRAW_SUPPORT_JACK] 407  入力任意  支点ジャッキアップ補強材・BASEプレート寸法の入力", kComments407, {}, kFormats407, "[END_DRAW_HAND_HOLE] 入力行数制限なし"},
    {408, 2, true, ShortestThatHolds, "[DRAW_MAN_HOLE] 408.入力任意  マンホール位置・タイプ", kComments408, {}, kFormats408, "[END DRAW_MAN_HOLE]"},
    {409, 2, true, ShortestThatHolds, "[DRAW_HAND_HOLE] 409.入力任意  ハンドホール位置・タイプ", kComments409, {}, kFormats409, "[END DRAW_HAND_HOLE]"},
    {412, 2, true, FirstRowApart, "[DRAW_LINE_NOUSED] 412.線形図に出力しないライン", kComments412, {}, kFormats412, "[END DRAW_LINE_NOUSED]"},
    {413, 2, true, ShortestThatHolds, "[DRAW_LINE_END] 413.橋台・桁端横断線の名称及び交点座標の入力", kComments413, {}, kFormats413, "[END DRAW_LINE_END]"},
    {422, 1, true, ShortestThatHolds, "[DRAW_END_WEB_CUT] 422.切欠き部寸法", kComments422, {}, kFormats422, "[END DRAW_END_WEB_CUT] "},
    {423, 2, true, ShortestThatHolds, "[DRAW_L_RIB_SR] 423.箱桁縦リブスカーラップ   DISは溶接無タイプのみ有効", kComments423, {}, kFormats423, "[END DRAW_L_RIB_SR]"},
    {481, 2, true, ShortestThatHolds, "[SBD_SHEET_GIRDER] 481.主桁図面範囲の指定", kComments481, {}, kFormats481, "[END SBD_SHEET_GIRDER]"},
    {482, 2, true, ShortestThatHolds, "[CBD_SHEET_CROSS] 482.(=567)横桁対傾構図面範囲の指定", kComments482, {}, kFormats482, "[END CBD_SHEET_CROSS]"},
    {483, 2, true, ShortestThatHolds, "[CBD_SHEET_LATERAL] 483.(=584)下横構各図面出力の範囲の指定", kComments483, {}, kFormats483, "[END CBD_SHEET_LATERAL]"},
    {484, 2, true, ShortestThatHolds, "[MBD_SHEET_GIRDER] 484.主桁材料範囲の指定", kComments484, {}, kFormats484, "[END MBD_SHEET_GIRDER]"},
    {485, 2, true, ShortestThatHolds, "[MBD_SHEET_CROSS] 485.横桁・対傾構材料範囲の指定", kComments485, {}, kFormats485, "[END MBD_SHEET_CROSS]"},
    {486, 2, true, ShortestThatHolds, "[MBD_SHEET_LATERAL] 486.下横構材料出力の範囲の指定", kComments486, {}, kFormats486, "[END MBD_SHEET_LATERAL]"},
    {501, 0, true, RecordsOfTheirOwn, "[CBD_GRID] 501.  主桁,横桁(対傾構),ライン", {}, {}, {}, "[END CBD_GRID]"},
    {502, 2, true, ShortestThatHolds, "[CBD_BOX_WEB] 502.箱桁左右腹板ライン名", kComments502, {}, kFormats502, "[END CBD_BOX_WEB]"},
    {503, 2, true, ShortestThatHolds, "[CBD_GIRDER_RANGE] 503.主桁有効範囲", kComments503, {}, kFormats503, "[END CBD_GIRDER_RANGE]"},
    {504, 2, true, ShortestThatHolds, "[CBD_COOR] 504.格子座標, 単位m", kComments504, {}, kFormats504, "[END CBD_COOR]"},
    {505, 2, true, ShortestThatHolds, "[CBD_MODEL] 505.格子形状(計算モデル):  計算用の代表値", kComments505, {}, kFormats505, "[END CBD_MODEL]"},
    {506, 2, true, ShortestThatHolds, "[CBD_WIND_END] 506.風荷重・端死荷重", kComments506, {}, kFormats506, "[END CBD_WIND_END]"},
    {507, 2, true, ShortestThatHolds, "[CBD_GRID_FORCE] 507.断面力(格子解析)", kComments507, {}, kFormats507, "[END CBD_GRID_FORCE]"},
    {511, 2, true, ShortestThatHolds, "[CBD_GIRDER_H] 511.主桁高   寸法値単位mm", kComments511, {}, kFormats511, "[END CBD_GIRDER_H]"},
    {512, 2, true, ShortestThatHolds, "[CBD_GIRDER_SECTION] 512.主桁断面   寸法値単位mm", kComments512, {}, kFormats512, "[END CBD_GIRDER_SECTION]"},
    {513, 2, true, ShortestThatHolds, "[CBD_GIRDER_V_STIFF] 513.主桁垂直補剛材(一般部)   寸法値単位mm", kComments513, {}, kFormats513, "[END CBD_GIRDER_V_STIFF]"},
    {514, 2, true, ShortestThatHolds, "[CBD_GIRDER_S_STIFF] 514.(=714)主桁垂直補剛材(格点上)   寸法値単位mm", kComments514, {}, kFormats514, "[END CBD_GIRDER_S_STIFF]"},
    {515, 2, true, ShortestThatHolds, "[CBD_GIRDER_H_STIFF] 515.主桁水平補剛材   寸法値単位mm", kComments515, {}, kFormats515, "[END CBD_GIRDER_H_STIFF]"},
    {516, 2, true, ShortestThatHolds, "[CBD_END_LENGTH] 516. 桁端寸法", kComments516, {}, kFormats516, "[END_CBD_END_LENGTH] 入力行数制限なし"},
    {517, 2, true, ShortestThatHolds, "[CBD_AFFIX] 517. 添架物", kComments517, {}, kFormats517, "[END CBD_AFFIX]"},
    {523, 2, true, ShortestThatHolds, "[CBD_TYPE] 523.横桁(対傾構)種別", kComments523, {}, kFormats523, "[END CBD_TYPE]"},
    {524, 2, true, ShortestThatHolds, "[CBD_GROUP] 524.横桁(対傾構)GROUP", kComments524, {}, kFormats524, "[END CBD_GROUP]"},
    {532, 2, true, ShortestThatHolds, "[CBD_CROSS_Z] 532.横桁配置   寸法値単位mm", kComments532, {}, kFormats532, "[END CBD_CROSS_Z]"},
    {533, 2, true, ShortestThatHolds, "[CBD_CROSS_SECTION] 533.横桁断面,材質   寸法値単位mm", kComments533, {}, kFormats533, "[END CBD_CROSS_SECTION]"},
    {534, 2, true, ShortestThatHolds, "[CBD_CROSS_V_STIFF] 534.横桁垂直補剛材   寸法値単位mm", kComments534, {}, kFormats534, "[END CBD_CROSS_V_STIFF]"},
    {535, 2, true, ShortestThatHolds, "[CBD_CROSS_H_STIFF] 535.横桁水平補剛材   寸法値単位mm", kComments535, {}, kFormats535, "[END CBD_CROSS_H_STIFF]"},
    {542, 2, true, ShortestThatHolds, "[CBD_SWAY_YZ] 542.対傾構骨組線配置   寸法値単位mm   SY = G: 主桁WEB中心線，B = 最内側連結ボルト位置", kComments542, {}, kFormats542, "[END CBD_SWAY_YZ] 入力必須"},
    {543, 2, true, ShortestThatHolds, "[CBD_SWAY_SECTION] 543.対傾構断面,材質   寸法値単位mm", kComments543, {}, kFormats543, "[END CBD_SWAY_SECTION]"},
    {551, 2, true, ShortestThatHolds, "[CBD_TYPE_SPLICE] 551.主桁-横桁(対傾構)連結形式,入込方向   寸法値単位mm", kComments551, {}, kFormats551, "[END CBD_TYPE_SPLICE]"},
    {552, 2, true, ShortestThatHolds, "[CBD_F_TYPE_SPLICE] 552.横桁(対傾構)フランジ連結タイプ   寸法値単位mm", kComments552, {}, kFormats552, "[END CBD_F_TYPE_SPLICE]"},
    {553, 2, true, ShortestThatHolds, "[CBD_F_SHAPE_SPLICE] 553.横桁(対傾構)フランジ連結形状   寸法値単位mm", kComments553, {}, kFormats553, "[END CBD_F_SHAPE_SPLICE]"},
    {554, 2, true, ShortestThatHolds, "[CBD_F_BOLT_SPLICE] 554.横桁(対傾構)フランジ連結ボルト", kComments554, {}, kFormats554, "[END CBD_F_BOLT_SPLICE]"},
    {555, 2, true, ShortestThatHolds, "[CBD_F_BOLT_DIS] 555.横桁(対傾構)フランジ連結ボルト間隔   寸法値単位mm", kComments555, {}, kFormats555, "[END CBD_F_BOLT_DIS]"},
    {556, 2, true, ShortestThatHolds, "[CBD_W_BOLT_SPLICE] 556.横桁ウェブ連結ボルト", kComments556, {}, kFormats556, "[END CBD_W_BOLT_SPLICE]"},
    {557, 2, true, ShortestThatHolds, "[CBD_S_SHAPE_SPLICE] 557.横桁仕口添接板   寸法値単位mm", kComments557, {}, kFormats557, "[END CBD_S_SHAPE_SPLICE]"},
    {558, 2, true, ShortestThatHolds, "[CBD_S_BOLT_SPLICE] 558.横桁仕口連結ボルト", kComments558, {}, kFormats558, "[END CBD_S_BOLT_SPLICE]"},
    {559, 2, true, ShortestThatHolds, "[CBD_S_FLG_BOLT_DIS] 559.横桁仕口フランジ連結ボルト間隔　寸法値単位mm", kComments559, {}, kFormats559, "[END CBD_S_FLG_BOLT_DIS]"},
    {560, 2, true, ShortestThatHolds, "[CBD_S_WEB_BOLT_DIS] 560.横桁仕口ウェブ連結ボルト間隔   寸法値単位mm", kComments560, {}, kFormats560, "[END CBD_S_WEB_BOLT_DIS]"},
    {561, 2, true, ShortestThatHolds, "[CBD_S_END_SHAPE] 561.横桁仕口端部形状   寸法値単位mm", kComments561, {}, kFormats561, "[END CBD_S_END_SHAPE]"},
    {562, 2, true, ShortestThatHolds, "[CBD_VSG_SHAPE_SPLICE] 562.対傾構ガセット形状   寸法値単位mm", kComments562, {}, kFormats562, "[END CBD_VSG_SHAPE_SPLICE]"},
    {563, 2, true, ShortestThatHolds, "[CBD_VSG_BOLT_SPLICE] 563.対傾構ガセット連結ボルト   寸法値単位mm", kComments563, {}, kFormats563, "[END CBD_VSG_BOLT_SPLICE]"},
    {564, 2, true, ShortestThatHolds, "[CBD_VCG_SHAPE_SPLICE] 564.対傾構中央ガセット形状   寸法値単位mm 勾配%", kComments564, {}, kFormats564, "[END CBD_VCG_SHAPE_SPLICE]"},
    {565, 2, true, ShortestThatHolds, "[CBD_WEB_SR] 565.横桁(対傾構)ウェブスカーラップ   寸法値単位mm", kComments565, {}, kFormats565, "[END CBD_WEB_SR]"},
    {566, 2, true, ShortestThatHolds, "[CBD_MEMBER_POSITION] 566.横桁(対傾構)部材配置   寸法値単位mm", kComments566, {}, kFormats566, "[END CBD_MEMBER_POSITION]"},
    {572, 2, true, ShortestThatHolds, "[CBD_L_LATERAL_SECTION] 572.下横構断面,材質   寸法値単位mm", kComments572, {}, kFormats572, "[END CBD_L_LATERAL_SECTION]"},
    {573, 0, true, ShortestThatHolds, "[CBD_L_LATERAL_POSITION] 573.下横構配置", kComments573, {}, kFormats573, "[END CBD_L_LATERAL_POSITION]"},
    {574, 2, true, ShortestThatHolds, "[CBD_L_LATERAL_DISTANCE] 574.下横構中間位置", kComments574, {}, kFormats574, "[END CBD_L_LATERAL_DISTANCE]"},
    {575, 2, true, ShortestThatHolds, "[CBD_L_LATERAL_SPLICE] 575.下横構連結   寸法値単位mm", kComments575, {}, kFormats575, "[END CBD_L_LATERAL_SPLICE]"},
    {576, 2, true, ShortestThatHolds, "[CBD_L_LATERAL_CROSS_SPLICE] 576.下横構交差部   寸法値単位mm", kComments576, {}, kFormats576, "[END CBD_L_LATERAL_CROSS_SPLICE]"},
    {577, 2, true, ShortestThatHolds, "[CBD_HG_TYPE_SPLICE] 577.下横構水平ガセットタイプ   寸法値単位mm", kComments577, {}, kFormats577, "[END CBD_HG_TYPE_SPLICE]"},
    {578, 2, true, ShortestThatHolds, "[CBD_HG_SHAPE_SPLICE] 578.下横構水平ガセット形状_高さ   寸法値単位mm", kComments578, {}, kFormats578, "[END CBD_HG_SHAPE_SPLICE]"},
    {579, 2, true, ShortestThatHolds, "[CBD_HG_SR] 579.下横構水平ガセットスカーラップ   寸法値単位mm", kComments579, {}, kFormats579, "[END CBD_HG_SR]"},
    {581, 2, true, ShortestThatHolds, "[CBD_HG_CONNECTION] 581. 下横構コネクション形状   寸法値単位mm", kComments581, {}, kFormats581, "[END CBD_HG_CONNECTION]"},
    {582, 2, true, ShortestThatHolds, "[CBD_HG_BOLT_GIRDER] 582. 下横構主桁付コネクションボルト   寸法値単位mm", kComments582, {}, kFormats582, "[END CBD_HG_BOLT_GIRDER]"},
    {583, 2, true, ShortestThatHolds, "[CBD_HG_SPLICE_SWAY] 583. 下横構横桁側形状,横桁付コネクション", kComments583, {}, kFormats583, "[END CBD_HG_SPLICE_SWAY]"},
    {602, 2, true, ShortestThatHolds, "[FBD_DIVIDE_DETAILS] 602. 分割の詳細設定", kComments602, {}, kFormats602, "[END FBD_DIVIDE_DETAILS]"},
    {603, 2, true, ShortestThatHolds, "[FBD_NUMBER_ELEMENT] 603. 要素番号設定", kComments603, {}, kFormats603, "[END FBD_NUMBER_ELEMENT]"},
    {604, 2, true, ShortestThatHolds, "[FBD_GIRDER_SECTION] 604. 主桁部材長 断面寸法;  始横桁側より順に入力 寸法値単位mm", kComments604, {}, kFormats604, "[END FBD_GIRDER_SECTION]   部材長＆板厚の入力"},
    {605, 2, true, ShortestThatHolds, "[FBD_GIRDER_V_STIFF] 605.主桁垂直補剛材 配置,寸法; 垂直補剛材「-」距離 入力で仮想補剛材指定 寸法値単位mm", kComments605, {}, kFormats605, "[END FBD_GIRDER_V_STIFF]"},
    {606, 2, true, ShortestThatHolds, "[FBD_GIRDER_H_STIFF] 606. 主桁水平補剛材 配置,寸法; 寸法値単位mm", kComments606, {}, kFormats606, "[END FBD_GIRDER_H_STIFF]"},
    {607, 2, true, ShortestThatHolds, "[FBD_SUPPORT_CONCRETE] 607. 支点上横桁形式,支点コンクリート;  寸法値単位mm", kComments607, {}, kFormats607, "[END FBD_SUPPORT_CONCRETE] 入力任意 ｺﾝｸﾘｰﾄ充填 0:充填無し >0:充填高さ -1:全充填"},
    {608, 2, true, ShortestThatHolds, "[FBD_SUPPORT_V_STIFF] 608.支点上補強板寸法;支点コンクリート;  寸法値単位mm", kComments608, {}, kFormats608, "[END FBD_SUPPORT_V_STIFF] 入力任意"},
    {609, 2, true, ShortestThatHolds, "[FBD_BOUNDARY_CONDITION] 609.境界条件; バネ定数 (kN/m)", kComments609, {}, kFormats609, "[END FBD_BOUNDARY_CONDITION]  バネ定数 (kN/m)"},
    {610, 2, true, ShortestThatHolds, "[FBD_CROSS_SWAY_TYPE] 610.横桁(対傾構)種別", kComments610, {}, kFormats610, "[END FBD_CROSS_SWAY_TYPE]"},
    {611, 2, true, ShortestThatHolds, "[FBD_GIRDER_H]  611.主桁高  寸法値単位mm", kComments611, {}, kFormats611, "[END FBD_GIRDER_H]"},
    {612, 2, true, ShortestThatHolds, "[FBD_CROSS_SWAY_Z]  612.横桁(対傾構)配置寸法;  値単位mm", kComments612, {}, kFormats612, "[END FBD_CROSS_SWAY_Z]"},
    {613, 2, true, ShortestThatHolds, "[FBD_TYPE_SPLICE] 613.横桁(対傾構) 入込方向,連結方式の設定", kComments613, {}, kFormats613, "[END FBD_TYPE_SPLICE]"},
    {621, 2, true, ShortestThatHolds, "[FBD_CROSS_SECTION] 621. 横桁断面寸法,  寸法値単位mm", kComments621, {}, kFormats621, "[END FBD_CROSS_SECTION]"},
    {622, 2, true, ShortestThatHolds, "[FBD_FLG_SPLICE] 622.横桁フランジ連結板、添接板寸法 寸法値単位mm", kComments622, {}, kFormats622, "[END FBD_FLG_SPLICE]"},
    {623, 2, true, ShortestThatHolds, "[FBD_SWAY_SECTION] 623.対傾構断面,材質   寸法値単位mm", kComments623, {}, kFormats623, "[END FBD_SWAY_SECTION]"},
    {624, 2, true, ShortestThatHolds, "[FBD_VSG_SHAPE_SPLICE] 624.対傾構ガセット形状(部材端)   寸法値単位mm", kComments624, {}, kFormats624, "[END FBD_VSG_SHAPE_SPLICE]"},
    {625, 2, true, ShortestThatHolds, "[FBD_VCG_SHAPE_SPLICE] 625.対傾構ガセット形状(中央)   寸法値単位mm", kComments625, {}, kFormats625, "[END FBD_VCG_SHAPE_SPLICE]"},
    {631, 2, true, ShortestThatHolds, "[FBD_L_LATERAL_POSITION] 631. 下横構 配置設定", kComments631, {}, kFormats631, "[END FBD_L_LATERAL_POSITION]"},
    {632, 2, true, ShortestThatHolds, "[FBD_L_LATERAL_GUSSET] 632. 下横構 ガセットプレート寸法", kComments632, {}, kFormats632, "[END FBD_L_LATERAL_GUSSET]"},
    {633, 2, true, ShortestThatHolds, "[FBD_L_LATERAL_SECTION] 633.下横構 部材寸法", kComments633, {}, kFormats633, "[END FBD_L_LATERAL_SECTION]"},
    {641, 2, true, ShortestThatHolds, "[STRINGER_RANGE] 641.縦桁有効範囲", kComments641, {}, kFormats641, "[END STRINGER_RANGE] 641"},
    {642, 2, true, ShortestThatHolds, "[STRINGER_LOAD]  642. 縦桁設計荷重", kComments642, {}, kFormats642, "[END_STRINGER_LOAD] 642"},
    {643, 2, true, ShortestThatHolds, "[STRINGER_DZ_ANGLE]  643. 縦桁の配置・前後横桁位置の横断差，入れ込み方向，橋軸方向間隔，平面角度", kComments643, {}, kFormats643, "[END STRINGER_DZ_ANGLE] 643"},
    {644, 2, true, ShortestThatHolds, "[STRINGER_SECTION] 644.縦桁断面,材質   寸法値単位mm", kComments644, {}, kFormats644, "[END STRINGER_SECTION] 644"},
    {645, 2, true, ShortestThatHolds, "[STRINGER_V_STIFF] 645.縦桁垂直補剛材   寸法値単位mm", kComments645, {}, kFormats645, "[END STRINGER_V_STIFF] 645.縦桁垂直補剛材   寸法値単位mm"},
    {646, 2, true, ShortestThatHolds, "[STRINGER_H_STIFF] 646.縦桁水平補剛材   寸法値単位mm", kComments646, {}, kFormats646, "[END STRINGER_H_STIFF] 646.縦桁水平補剛材   寸法値単位mm"},
    {647, 2, true, ShortestThatHolds, "[STRINGER_CROSS_SECTION] 647. 中縦桁位置での横桁断面寸法, 単位mm", kComments647, {}, kFormats647, "[END STRINGER_CROSS_SECTION] 647. 中縦桁位置での横桁断面寸法, 単位mm"},
    {648, 2, true, ShortestThatHolds, "[STRINGER_CROSS_VS] 648. 中縦桁位置での横桁垂直補剛材   寸法値単位mm", kComments648, {}, kFormats648, "[END STRINGER_CROSS_VS] 648. 中縦桁位置での横桁垂直補剛材   寸法値単位mm"},
    {649, 2, true, ShortestThatHolds, "[STRINGER_CROSS_HS] 649. 中縦桁位置での横桁水平補剛材   寸法値単位mm", kComments649, {}, kFormats649, "[END STRINGER_CROSS_HS] 649. 中縦桁位置での横桁水平補剛材   寸法値単位mm"},
    {651, 2, true, ShortestThatHolds, "[STRINGER_TYPE_SPLICE] 651. 縦桁-横桁連結形式,入込方向", kComments651, {}, kFormats651, "[END STRINGER_TYPE_SPLICE] 651. 縦桁-横桁連結形式,入込方向"},
    {652, 2, true, ShortestThatHolds, "[STRINGER_F_TYPE_SPLICE] 652.縦桁(仕口以外)フランジ連結タイプ   寸法値単位mm", kComments652, {}, kFormats652, "[END STRINGER_F_TYPE_SPLICE] 652.縦桁(仕口以外)フランジ連結タイプ   寸法値単位mm"},
    {653, 2, true, ShortestThatHolds, "[STRINGER_F_SHAPE_SPLICE] 653.縦桁(仕口以外)フランジ連結形状   寸法値単位mm", kComments653, {}, kFormats653, "[END STRINGER_F_SHAPE_SPLICE] 653.縦桁(仕口以外)フランジ連結形状   寸法値単位mm"},
    {654, 2, true, ShortestThatHolds, "[STRINGER_F_BOLT_SPLICE] 654.縦桁(仕口以外)フランジ連結ボルト", kComments654, {}, kFormats654, "[END STRINGER_F_BOLT_SPLICE] 654.縦桁(仕口以外)フランジ連結ボルト"},
    {655, 2, true, ShortestThatHolds, "[STRINGER_F_BOLT_DIS] 655.縦桁フランジ連結ボルト間隔   寸法値単位mm", kComments655, {}, kFormats655, "[END STRINGER_F_BOLT_DIS] 655.縦桁フランジ連結ボルト間隔   寸法値単位mm"},
    {656, 2, true, ShortestThatHolds, "[STRINGER_W_BOLT_SPLICE] 656.縦桁ウェブ連結ボルト", kComments656, {}, kFormats656, "[END STRINGER_W_BOLT_SPLICE] 656.縦桁ウェブ連結ボルト"},
    {657, 2, true, ShortestThatHolds, "[STRINGER_S_SHAPE_SPLICE] 657.縦桁仕口添接板   寸法値単位mm", kComments657, {}, kFormats657, "[END STRINGER_S_SHAPE_SPLICE] 657.縦桁仕口添接板   寸法値単位mm"},
    {658, 2, true, ShortestThatHolds, "[STRINGER_S_BOLT_SPLICE] 658.縦桁仕口連結ボルト", kComments658, {}, kFormats658, "[END STRINGER_S_BOLT_SPLICE] 658.縦桁仕口連結ボルト"},
    {659, 2, true, ShortestThatHolds, "[STRINGER_S_FLG_BOLT_DIS] 659.縦桁仕口フランジ連結ボルト間隔　寸法値単位mm", kComments659, {}, kFormats659, "[END STRINGER_S_FLG_BOLT_DIS] 659.縦桁仕口フランジ連結ボルト間隔　寸法値単位mm"},
    {660, 2, true, ShortestThatHolds, "[STRINGER_S_WEB_BOLT_DIS] 660.縦桁仕口ウェブ連結ボルト間隔   寸法値単位mm", kComments660, {}, kFormats660, "[END STRINGER_S_WEB_BOLT_DIS] 660.縦桁仕口ウェブ連結ボルト間隔   寸法値単位mm"},
    {661, 2, true, ShortestThatHolds, "[STRINGER_S_END_SHAPE] 661.縦桁仕口端部形状   寸法値単位mm", kComments661, {}, kFormats661, "[END STRINGER_S_END_SHAPE] 661.縦桁仕口端部形状   寸法値単位mm"},
    {662, 2, true, FirstRowApart, "[STRINGER_STUD] 662.ずれ止め間隔の入力或は出力", kComments662, kRowComments662, kFormats662, "[END_STRINGER_STUD]ずれ止めタイプ・寸法は一行目に入力"},
    {665, 2, true, ShortestThatHolds, "[STRINGER_WEB_SR] 665.縦桁ウェブスカーラップ   寸法値単位mm", kComments665, {}, kFormats665, "[END STRINGER_WEB_SR] 665.縦桁ウェブスカーラップ   寸法値単位mm"},
    {666, 2, true, ShortestThatHolds, "[STRINGER_MEMBER_POSITION] 666.縦桁部材配置   寸法値単位mm", kComments666, {}, kFormats666, "[END STRINGER_MEMBER_POSITION] 666.縦桁部材配置   寸法値単位mm"},
    {668, 2, true, ShortestThatHolds, "[STRINGER_OUTPUT] 668.縦桁計算書出力・GROUTの指定", kComments668, {}, kFormats668, "[END STRINGER_OUTPUT] 668.縦桁計算書出力・GROUTの指定"},
    {669, 2, true, ShortestThatHolds, "[STRINGER_SHEET_CROSS] 669.縦桁図面出力の範囲の指定", kComments669, {}, kFormats669, "[END STRINGER_SHEET_CROSS] 669.縦桁図面出力の範囲の指定"},
    {671, 2, true, ShortestThatHolds, "[BRACKET_LOAD]  671. ブラケット(側縦桁)設計荷重  (mm OR kN・m)", kComments671, {}, kFormats671, "[END BRACKET_LOAD]"},
    {672, 2, true, ShortestThatHolds, "[BRACKET_DZ_ANGLE]  672. ブラケットの横断差，入れ込み方向,張出し長及び平面角度", kComments672, {}, kFormats672, "[END BRACKET_DZ_ANGLE]"},
    {673, 2, true, ShortestThatHolds, "[BRACKET_Z]  673. ブラケット押えデータ", kComments673, {}, kFormats673, "[END BRACKET_Z]"},
    {674, 2, true, ShortestThatHolds, "[BRACKET_H_SECTION]  674. ブラケットの高さ・断面・材質", kComments674, {}, kFormats674, "[END BRACKET_H_SECTION]"},
    {675, 2, true, ShortestThatHolds, "[BRACKET_ST_F_BOLT]  675. 側縦側のブラケットのフランジ連結ボルト", kComments675, {}, kFormats675, "[END BRACKET_ST_F_BOLT]"},
    {676, 2, true, ShortestThatHolds, "[BRACKET_ST_W_BOLT]  676. ブラケット側縦桁側ウェブ連結ボルト", kComments676, {}, kFormats676, "[END BRACKET_ST_W_BOLT]"},
    {677, 2, true, ShortestThatHolds, "[BRACKET_MG_SPLICE]  677. ブラケット主桁側仕口連結板寸法", kComments677, {}, kFormats677, "[END BRACKET_MG_SPLICE]"},
    {678, 2, true, ShortestThatHolds, "[BRACKET_MG_BOLT]  678. ブラケット仕口ボルトの本数・形式・割数", kComments678, {}, kFormats678, "[END BRACKET_MG_BOLT]"},
    {679, 2, true, ShortestThatHolds, "[BRACKET_MG_FLG_BOLT_DIS]  679. ブラケット仕口フランジボルトの間隔", kComments679, {}, kFormats679, "[END BRACKET_MG_FLG_BOLT_DIS]"},
    {680, 2, true, ShortestThatHolds, "[BRACKET_MG_WEB_BOLT_DIS]680.ブラケット主桁側仕口ウェブボルト間隔", kComments680, {}, kFormats680, "[END BRACKET_MG_WEB_BOLT_DIS]"},
    {681, 2, true, ShortestThatHolds, "[BRACKET_END_SHAPE] 681.ブラケット端部形状", kComments681, {}, kFormats681, "[END BRACKET_END_SHAPE]"},
    {682, 2, true, ShortestThatHolds, "[BRACKET_V_STIFF] 682.ブラケット垂直補剛材 寸法値単位mm", kComments682, {}, kFormats682, "[END BRACKET_V_STIFF]"},
    {683, 2, true, ShortestThatHolds, "[BRACKET_H_STIFF] 683.ブラケット水平補剛材 寸法値単位mm", kComments683, {}, kFormats683, "[END BRACKET_H_STIFF]"},
    {689, 2, true, ShortestThatHolds, "[BRACKET_OUTPUT] 689. ブラケット出力選択", kComments689, {}, kFormats689, "[END BRACKET_OUTPUT]"},
    {702, 1, true, RecordsOfTheirOwn, "[2BD_GRID] 702. 鈑桁 主桁,横桁,支承線", {}, {}, {}, "[END 2BD_GRID]"},
    {703, 2, true, ShortestThatHolds, "[2BD_GROUP] 703.ｸﾞﾙｰﾌﾟ (支承なし=[無])", kComments703, {}, kFormats703, "[END 2BD_GROUP]"},
    {704, 2, true, ShortestThatHolds, "[2BD_RATIO_D_LOAD] 704.橋軸方向死荷重分担率", kComments704, {}, kFormats704, "[END 2BD_RATIO_D_LOAD]"},
    {705, 2, true, ShortestThatHolds, "[2BD_FORCE_WIND] 705.風荷重", kComments705, {}, kFormats705, "[END 2BD_FORCE_WIND]"},
    {706, 2, true, ShortestThatHolds, "[2BD_DIS_GIRDER] 706.主桁間距離   寸法値単位mm", kComments706, {}, kFormats706, "[END 2BD_DIS_GIRDER]"},
    {707, 2, true, ShortestThatHolds, "[2BD_D_L_LOAD] 707.死荷重,活荷重", kComments707, {}, kFormats707, "[END 2BD_D_L_LOAD]"},
    {708, 2, true, ShortestThatHolds, "[2BD_REATION_MOMENT] 708. 反力曲げモーメント", kComments708, {}, kFormats708, "[END 2BD_REATION_MOMENT]"},
    {711, 2, true, ShortestThatHolds, "[2BD_GIRDER] 711.主桁断面材質   寸法値単位mm", kComments711, {}, kFormats711, "[END 2BD_GIRDER]"},
    {713, 2, true, ShortestThatHolds, "[2BD_RIB] 713.補強リブ  寸法値単位mm", kComments713, {}, kFormats713, "[END 2BD_RIB]"},
    {723, 2, true, ShortestThatHolds, "[2BD_BOX_SECTION] 723. 箱桁断面材質", kComments723, {}, kFormats723, "[END 2BD_BOX_SECTION]"},
    {724, 2, true, ShortestThatHolds, "[2BD_BOX_CROSS] 724.  箱桁横断部材", kComments724, {}, kFormats724, "[END 2BD_BOX_CROSS]"},
    {725, 2, true, ShortestThatHolds, "[2BD_BOX_V_RIB] 725. 箱桁縦リブ", kComments725, {}, kFormats725, "[END 2BD_BOX_V_RIB]"},
    {726, 2, true, ShortestThatHolds, "[2BD_BOX_H_SR]  726.  箱桁支間長・縦リブスカーラップ欠損高", kComments726, {}, kFormats726, "[END 2BD_BOX_H_SR]"},
    {731, 2, true, ShortestThatHolds, "[2BD_BOX_DIA_SUPPORT] 731. 箱桁支点ダイヤ_支承数_断面", kComments731, {}, kFormats731, "[END 2BD_BOX_DIA_SUPPORT]"},
    {734, 2, true, ShortestThatHolds, "[2BD_BOX_DIA_STIFF] 734. 箱桁支点ダイヤ_垂直補剛材", kComments734, {}, kFormats734, "[END 2BD_BOX_DIA_STIFF]"},
    {735, 2, true, ShortestThatHolds, "[2BD_BOX_MAN_HOLE] 735.  箱桁支点ダイヤ_マンホール", kComments735, {}, kFormats735, "[END 2BD_BOX_MAN_HOLE]"},
    {741, 2, true, ShortestThatHolds, "[2BD_DIA_INTER_SECTION] 741. 箱桁中間ダイヤ_断面", kComments741, {}, kFormats741, "[END 2BD_DIA_INTER_SECTION]"},
    {742, 2, true, ShortestThatHolds, "[2BD_DIA_INTER_DIS] 742. 箱桁中間ダイヤ_床版厚_間隔_曲率", kComments742, {}, kFormats742, "[END 2BD_DIA_INTER_DIS]"},
    {743, 2, true, ShortestThatHolds, "[2BD_DIA_INTER_MOMENT] 743.  箱桁中間ダイヤ_荷重_モーメント", kComments743, {}, kFormats743, "[END 2BD_DIA_INTER_MOMENT]"},
    {744, 2, true, ShortestThatHolds, "[2BD_DIA_INTER_OPENING] 744.  箱桁中間ダイヤ_開口部", kComments744, {}, kFormats744, "[END 2BD_DIA_INTER_OPENING]"},
    {745, 2, true, ShortestThatHolds, "[2BD_DIA_INTER_PLATE_J] 745.  箱桁中間ダイヤ_補強板(充腹板開口周)", kComments745, {}, kFormats745, "[END 2BD_DIA_INTER_PLATE_J]"},
    {746, 2, true, ShortestThatHolds, "[2BD_DIA_INTER_PLATE_JH] 746.  箱桁中間ダイヤ_補強板(充腹板水平材)", kComments746, {}, kFormats746, "[END 2BD_DIA_INTER_PLATE_JH]"},
    {747, 2, true, ShortestThatHolds, "[2BD_DIA_INTER_PLATE_R] 747.  箱桁中間ダイヤ_補強板(ラーメン開口周)", kComments747, {}, kFormats747, "[END 2BD_DIA_INTER_PLATE_R]"},
    {751, 2, true, ShortestThatHolds, "[2BD_DIA_PLATE_H] 751.  その他水平材", kComments751, {}, kFormats751, "[END 2BD_DIA_PLATE_H]"},
    {752, 2, true, ShortestThatHolds, "[2BD_DIA_PLATE_V] 752.  その他垂直材", kComments752, {}, kFormats752, "[END 2BD_DIA_PLATE_V]"},
};

// clang-format on

} // namespace

std::span<const RawSectionLayout> RawSectionLayouts()
{
    return kLayouts;
}

} // namespace sbd
