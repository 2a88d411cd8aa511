// Words of the field that mean one thing, and why. Okurigana between two kanji, width, case, long vowels and small kana
// need no row: they are folded before (search/understand.h).
#include "search/synonyms.h"

namespace sbd {

namespace {

// clang-format off
constexpr Synonyms kSynonyms[] = {
    // --- plates of a girder
    {"ウェブ|腹板|ウェッブ|web|ふくばん|ふくはん", "", "画面はウェブ・WEB・腹板を混ぜて使う"},
    {"フランジ|flg|flange|突縁", "", "画面はフランジとFLGを混ぜて使う"},
    {"uflg|uf|upper flange|top flange", "上 フランジ", "上フランジの略記"},
    {"lflg|lf|lower flange|bottom flange", "下 フランジ", "下フランジの略記"},
    {"ulflg|ulfg", "上 下 フランジ", "上下フランジの略記"},
    {"補剛材|スチフナ|スティフナ|stiffener|stiff|補剛|ほごうざい", "", "示方書の語と現場の語"},
    {"垂直補剛材|垂直補|垂補|vstiff|vs", "垂直 補剛材", "略記。VS優先・垂補間など"},
    {"水平補剛材|水平補|hstiff|hs", "水平 補剛材", "略記。水平補縦リブなど"},
    {"sstiff", "支点 補剛材", "区分名の略記"},
    {"補強材|補強板|補強|reinforcement|reinforcing|ダブリング|ダブラー|タブリング", "", "補強する板の呼び方"},
    {"リブ|rib", "", "英語の区分名"},
    {"縦リブ|lrib|vrib|longitudinal rib|縦補剛材|縦方向リブ", "縦 リブ", "略記L-RIB、示方書は縦方向補剛材"},
    {"横リブ|crossrib|transverse rib|横補剛材", "横 リブ", "略記CROSS_RIB"},
    {"uリブ|トラフリブ|閉断面リブ|urib|trough rib", "", "Uリブはトラフリブとも呼ぶ"},
    {"バルブプレート|bulb plate|球平形鋼|bp", "", "略記BP"},
    {"ダイヤフラム|ダイヤ|ダイア|diaphragm|dia|隔壁|横隔板|隔板", "", "画面はダイヤ・DIAと略す"},
    {"ガセット|ガゼット|ガセットプレート|ガセットpl|gusset plate|gusset", "", "つづりの揺れ"},
    {"スカーラップ|スカラップ|スカロップ|scallop|sr", "", "つづりの揺れ、区分名の略記SR"},
    {"コーナーカット|隅切|角切|corner cut", "", "角を落とすこと"},
    {"切欠|切込|ノッチ|notch|きりかき", "", "同じ加工"},
    {"フィラー|フィラープレート|filler|填材", "", "板厚差を埋める板"},
    {"ソールプレート|ソールpl|ソール|sole plate|solepl|sole", "", "略記SOLE_PL"},
    {"マンホール|manhole|人孔|点検孔|点検口", "", "人が通る孔"},
    {"ハンドホール|handhole|手孔", "", "手を入れる孔"},
    {"開口|opening|開口部|かいこう", "", "ダイヤフラムの開口"},
    {"孔|穴|ホール|hole|holes|あな", "", "図面は孔、会話は穴"},
    {"吊金具|吊ピース|つりピース|つり金具|吊鐶|リフティング|hanging|lifting|つりかなぐ", "", "吊り足場の金具の呼び方"},
    {"水切|water drip|水切板", "", "英語の区分名"},
    {"排水|ドレーン|drain|drainage|水抜", "", "排水の孔"},
    {"ジャッキアップ|ジャッキ|jackup|jack", "", "略記JACK"},
    {"ずれ止|スタッドジベル|スタッド|ジベル|stud|shear connector|シアコネクタ|ずれどめ", "", "示方書はずれ止め、製品はスタッド"},
    {"添架物|添架|配管|affix", "", "桁に添える管"},

    // --- members
    {"桁|けた|げた", "", "かな書き"},
    {"主桁|主けた|主げた|main girder|girder|メインガーダー|ガーダー|しゅげた|しゅけた", "", "英語の区分名GIRDER"},
    {"主桁高", "主桁 桁 高", "桁高でも主桁高でも見つかるように"},
    {"横桁|横けた|横げた|よこげた|cross beam|crossbeam|cross girder|cross|クロスビーム|床桁", "", "英語の区分名CROSS"},
    {"縦桁|縦けた|縦げた|たてげた|stringer|ストリンガ", "", "英語の区分名STRINGER"},
    {"側縦桁", "側 縦桁", "縦桁の一つ"},
    {"鈑桁|プレートガーダー|plate girder|板桁|i桁|飯桁|i形桁|非箱桁|ばんげた|ばんけた", "", "I断面の桁の呼び方"},
    {"箱桁|ボックスガーダー|box girder|box|箱げた|箱形桁|箱断面|はこげた|はこけた", "", "英語の区分名BOX"},
    {"合成桁|composite girder|composite", "合成 桁", "英語の区分名COMPOSITE"},
    {"対傾構|sway bracing|sway|スウェイ|クロスフレーム|cross frame|たいけいこう", "", "英語の区分名SWAY"},
    {"横構|ラテラル|lateral bracing|lateral|よここう", "", "英語の区分名LATERAL"},
    {"ブラケット|bracket|持送|張出梁", "", "英語の区分名BRACKET"},
    {"斜材|diagonal|ダイアゴナル", "", "トラス部材の呼び方"},
    {"弦材|chord", "", "上弦材・下弦材"},
    {"ワーレン|ワーレント|warren", "", "画面はダブルワーレントと書く"},
    {"山形鋼|山形|アングル材|アングル|l形鋼|l鋼|angle bar|angle steel|等辺山形鋼|不等辺山形鋼", "", "L形断面の形鋼"},
    {"ct形鋼|ct鋼|ct形|ct|カットt|t形鋼", "", "CT形断面の形鋼"},
    {"h形鋼|h鋼|h形|hビーム", "", "H形断面の形鋼"},
    {"溝形鋼|溝形|チャンネル|channel|みぞ形鋼|c形鋼", "", "溝形断面の形鋼"},

    // --- splices, bolts, welds
    {"継手|ジョイント|joint|スプライス|splice|spl|継目|つぎて", "", "画面は継手・SPLICEを混ぜて使う"},
    {"ブロック割|ブロック長|部材割", "継手 位置", "ブロックの長さは継手位置で決まる"},
    {"添接板|連結板|スプライスプレート|添板|splice plate|継手板|ジョイントプレート|てんせつばん|れんけつばん", "", "鉄道・道路で呼び方が違う"},
    {"連結|コネクション|接合|connection|取付", "", "部材どうしをつなぐこと"},
    {"仕口|取合", "", "横桁と主桁の取合い"},
    {"ボルト|bolt|bolts|ぼると", "", "英語の区分名BOLT"},
    {"高力ボルト|ハイテンションボルト|ハイテンボルト|高張力ボルト|高強度ボルト|摩擦接合ボルト|トルシア形高力ボルト|"
     "トルシアボルト|トルシア|htb|tcb|high tension bolt|high strength bolt", "高力 ボルト", "略記HTB・TCB"},
    {"呼径|呼", "径", "ボルトの呼び径"},
    {"径|直径|diameter|外径", "", "丸いものの大きさ"},
    {"孔引|孔控除|控除|欠損", "", "孔で失う断面"},
    {"縁端|縁端距離|へりあき|縁あき|縁距離|edge distance|edge", "", "ボルトから縁まで"},
    {"溶接|welding|weld|熔接|ようせつ", "", "旧字と英語"},
    {"溶込|開先|グルーブ|groove|ペネ", "", "開先を取る溶接"},
    {"完全溶込|フルペネ|full penetration", "完全 溶込", "同じ溶接"},
    {"すみ肉|隅肉|フィレット|fillet|すみにく", "", "漢字とかな"},
    {"隙間|すきま|すき間|ギャップ|gap|クリアランス|遊間|離隔", "", "部材のあいだ"},
    {"間隔|間距離|ピッチ|pitch|spacing|刻|スペーシング|かんかく", "", "並ぶもののあいだ。1mm刻み＝1mmピッチ"},
    {"距離|離|distance|dis", "", "英語の区分名DIS"},

    // --- measures
    {"厚|板厚|厚さ|厚み|肉厚|thickness|thick|いたあつ", "", "板の厚さの書き方"},
    {"幅|巾|width|板幅", "", "略字と英語"},
    {"長|長さ|length", "", "送りの揺れ"},
    {"高|高さ|height|丈|板高|ハイト", "", "送りの揺れ"},
    {"桁高|桁丈|けた高|girder height|girder depth|けたたか|けただか", "桁 高", "主桁高とも書く"},
    {"最小|下限|最低|min|minimum", "", "下の限り"},
    {"最大|上限|max|maximum", "", "上の限り"},
    {"本数|数|個数|枚数|number|ほんすう", "", "数の書き方"},
    {"半径|アール|radius", "", "英語の区分名RADIUS"},
    {"曲率|カーブ|curvature|曲線|きょくりつ", "", "曲線の桁"},
    {"曲率半径|曲線半径", "曲率 半径", "同じもの"},
    {"座標|coordinate|coordinates|coor|ざひょう", "", "英語の区分名COOR"},
    {"勾配|傾斜|slope|gradient|こう配|こうばい", "", "同じもの"},
    {"斜角|skew|skew angle", "", "英語"},
    {"角度|angle", "", "英語の区分名ANGLE"},
    {"位置|場所|箇所|position|location|point", "", "英語の区分名POINT・POSITION"},
    {"配置|レイアウト|layout|arrangement", "", "同じもの"},
    {"寸法|サイズ|size|大きさ|dimension", "", "同じもの"},
    {"形状|形|shape|かたち", "", "英語の区分名SHAPE"},
    {"種類|種別|タイプ|形式|type|方式", "", "画面はタイプ・種別・形式を混ぜて使う"},
    {"支間|スパン|径間|span|支間長|径間長", "", "示方書は支間、会話はスパン"},
    {"張出|突出|overhang|projection", "", "308の張出し長は左右突出長とも書く"},
    {"垂直|鉛直|vertical|すいちょく", "", "縦の向き"},
    {"水平|horizontal|すいへい", "", "横の向き"},
    {"上|上側|upper", "", "送りの揺れ"},
    {"下|下側|lower", "", "送りの揺れ"},

    // --- material
    {"材質|鋼種|material|steel grade|鋼材の種類|鋼材種類|鋼材種|ざいしつ", "", "画面は材質、発注は鋼種"},
    {"材料|数量|鋼重|quantity|quantities|ざいりょう", "", "材料を拾う仕事"},
    {"耐候性|無塗装|ウェザリング|weathering|耐候性鋼|たいこうせい", "", "耐候性鋼材は無塗装で使う"},
    {"降伏点保証|降伏点一定鋼|降伏点一定", "", "画面は降伏点保証鋼材、規格は降伏点一定鋼"},
    {"コンクリート|concrete", "", "英語の表記CONCRETE"},
    {"床版|スラブ|slab|deck|床板|しょうばん", "", "英語の区分名SLAB"},
    {"鉄筋|reinforcing bar|rebar|主筋|てっきん", "", "英語の区分名"},
    {"配力鉄筋|配力筋", "配力 鉄筋", "略した書き方"},
    {"かぶり|被り|純かぶり", "", "漢字とかな"},
    {"ひび割|ひびわれ|クラック|crack|亀裂", "", "漢字とかな、英語の区分名CRACK"},
    {"ハンチ|haunch", "", "英語"},
    {"舗装|アスファルト|pavement|asphalt|ほそう", "", "舗装の材料"},
    {"地覆|縁石|curb|じふく", "", "端の立上り"},
    {"高欄|壁高欄|防護柵|手すり|parapet|railing|handrail|こうらん", "", "橋の端の柵"},
    {"ヤング係数|弾性係数|ヤング率|young", "", "同じ係数"},
    {"単位重量|密度|単位体積重量|unit weight|比重", "", "同じもの"},

    // --- forces and checks
    {"荷重|load|loads|ロード|かじゅう", "", "英語の区分名LOAD"},
    {"死荷重|固定荷重|dead load|死荷", "死 荷重", "略記"},
    {"活荷重|live load|自動車荷重", "活 荷重", "英語"},
    {"風荷重|風圧|wind load", "風 荷重", "同じ荷重"},
    {"wind", "風", "英語の区分名WIND"},
    {"地震|seismic|earthquake|耐震|地震力|じしん", "", "英語"},
    {"震度|seismic coefficient|しんど", "", "設計水平震度"},
    {"反力|reaction|reation|リアクション|はんりょく", "", "英語の区分名のつづりも"},
    {"支点|サポート|support|してん", "", "英語の区分名SUPPORT"},
    {"支承|シュー|ベアリング|bearing|bearings|沓|ししょう", "", "支承の呼び方"},
    {"境界条件|拘束条件|支持条件|boundary condition|boundary", "境界 条件", "FEMの支点の条件"},
    {"バネ|ばね|スプリング|spring", "", "漢字はない"},
    {"せん断|剪断|シア|shear|shearing", "", "旧字と英語"},
    {"曲げ|ベンディング|bending", "", "英語"},
    {"モーメント|moment", "", "英語の区分名MOMENT"},
    {"ねじり|捩|捻|ねじれ|torsion|twist", "", "漢字とかな"},
    {"軸力|軸方向力|axial force|axial", "", "英語の名AXIAL"},
    {"断面力|部材力|sectional force|sf", "", "区分名の略記SF"},
    {"応力|応力度|stress|stresses|おうりょく", "", "応力度と応力を区別せずに探す"},
    {"許容|allowable", "", "英語"},
    {"たわみ|撓|deflection", "", "漢字とかな"},
    {"キャンバー|反り|そり|camber|製作そり|上越", "", "示方書は上げ越し、製作はキャンバー"},
    {"疲労|fatigue|疲れ|ひろう", "", "英語"},
    {"細長比|slenderness ratio|slenderness|ほそながひ", "", "英語"},
    {"座屈|buckling", "", "英語"},
    {"剛度|剛性|rigidity", "", "同じ量"},
    {"照査|チェック|check|検証", "", "英語"},
    {"二軸|ニ軸|2軸|2 axis|biaxial", "", "画面はカタカナのニで書く"},
    {"乾燥収縮|shrinkage", "", "英語"},
    {"クリープ|creep", "", "英語の区分名CREEP"},
    {"温度差|温度変化|temperature", "", "英語"},
    {"割増|割り増|increase", "", "許容応力度の割増し"},
    {"余裕|マージン|margin", "", "英語"},
    {"有効幅|effective width", "有効 幅", "英語"},
    {"歩道橋|人道橋|footbridge|pedestrian bridge|pedestrian", "", "同じ橋"},

    // --- working with the system
    {"断面|section|だんめん", "", "英語の区分名SECTION"},
    {"変化|変更|変え|変わ|change|変断面", "", "変わること、変えること"},
    {"自動|オート|automatic|auto", "", "英語の見出し語"},
    {"手動|手入力|手で|マニュアル|manual", "", "自動の反対"},
    {"省略|行わない|しない|省く|省き|省い|無視|つけない|付けない|やめ|不要|なくし|skip|omit", "", "画面は「行わない」「無視」「省略」を混ぜて使う"},
    {"丸め|丸|端数処理|端数|四捨五入|切上|切捨|rounding|round", "", "端数を処理すること"},
    {"名|名前|名称|name|names", "", "主桁名・主桁の名前"},
    {"グループ|グルーピング|group|grouping", "", "つづりの揺れ"},
    {"図面|製図|作図|drawing|draw|sheet|シート|ずめん", "", "英語の区分名DRAW・SHEET"},
    {"題名|タイトル|工事名|橋名|物件名|件名|title", "", "301の1行目"},
    {"伸縮|伸縮装置|伸縮継手|エキスパンションジョイント|エキスパンション|expansion joint|expansion", "", "英語の区分名EXPANSION"},
    {"橋台|アバット|abutment", "", "英語"},
    {"仮想|ダミー|imaginary|imagination|dummy", "", "英語の区分名IMAGINATION"},
    {"分割|メッシュ|mesh|divide|division|細分", "", "FEMの要素の細かさ"},
    {"fem|有限要素|fbd", "", "区分名FBDはFEMのデータ"},
    {"格子|グリッド|grid", "", "英語の区分名GRID"},
    {"標準|基準|standard|スタンダード", "", "標準値・基準値"},
    {"制限|limit|制約", "", "英語の区分名LIMIT"},
    {"横断線|横断ライン", "横断 線", "同じもの"},
    {"期間|年数|供用|耐用", "", "疲労設計で考える年数"},
};

constexpr std::string_view kWeakWords[] = {
    "条件", "設定",   "入力", "方法", "変化",   "指定", "場合", "計算", "設計", "値",   "追加", "確認", "設置",
    "使用", "データ", "画面", "項目", "ブロック", "block", "no",   "yes",  "番",   "板",   "部材", "決定", "橋",
    "途中", "範囲",   "一覧", "表",   "the",    "of",   "mm",   "m",    "寸法", "標準",
    "自動", "手動",   "新",   "全部", "個別",   "必要",
};
// clang-format on

constexpr std::u16string_view kAskingStems = u"変決使知教見入行選直置出作調付方時事何所分持書押打";

} // namespace

std::span<const Synonyms> SynonymTable()
{
    return kSynonyms;
}

std::span<const std::string_view> WeakWords()
{
    return kWeakWords;
}

bool IsAskingStem(char16_t kanji)
{
    return kAskingStems.find(kanji) != kAskingStems.npos;
}

} // namespace sbd
