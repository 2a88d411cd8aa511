#include "upperview/topics_page.h"

#include "project/block_numbers.h"
#include "upperview/page/page_parser.h"

#include <string_view>

namespace sbd {

namespace {

constexpr std::string_view kTopics = R"(title = "999.検索・Q&A"

[[branch]]
text = '''
下の表の第１行に，探したい言葉や質問をそのまま入力してください．「添接板の板厚を変えたい」のような文でも探せます．
見つかった行を選ぶと，ここにその項目の説明が出ます．ダブルクリック，Enter，Ctrl+M でその入力位置へ移動します．
「Q&A」を選ぶと，質問と答えの一覧が出ます．

主な項目 (下線の番号をクリックすると，そのブロックを開きます)
    設計の条件          「301」設計の種類と自動設計の範囲　「302」断面の条件　「303」継手　「304」幅・厚・材質の制限
    主桁                「311」桁高　「331」WEB厚・材質　「332」フランジ　「321」継手位置
    補剛材              「313」垂直補剛材　「314」支点上の垂直補剛材　「315」水平補剛材　「324」横リブ　「326」縦リブ
    骨組と名称          「501」主桁名・横桁名　「352」横桁の配置と寸法
    横桁・対傾構        「521」設計の条件　「523」種別　「531」横桁　「541」対傾構
    下横構              「571」下横構の設計条件
    床組                「640」縦桁　「670」ブラケット
    支点上              「701」支点上補剛材　「721」ダイヤフラム
    製図                「401」製図の基本条件
    数量                「801」数量計算
'''
blue = [5]
)";

} // namespace

const Page& TopicsPage()
{
    static const Page page = ParsePage(kTopics, kSearchBlock).page;
    return page;
}

} // namespace sbd
