<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>ArtPanel</name>
    <message>
        <source>Styles of art text</source>
        <translation>艺术字样式</translation>
    </message>
    <message>
        <source>Line color</source>
        <translation>线条颜色</translation>
    </message>
    <message>
        <source>px</source>
        <translation>像素</translation>
    </message>
    <message>
        <source>Line width</source>
        <translation>线条宽度</translation>
    </message>
    <message>
        <source>Line width, 0 for no line</source>
        <translation>线条宽度，0 为无线条</translation>
    </message>
    <message>
        <source>Letter spacing</source>
        <translation>字间距</translation>
    </message>
    <message>
        <source>Letter spacing of art text</source>
        <translation>艺术字的字间距</translation>
    </message>
    <message>
        <source>Row spacing</source>
        <translation>行间距</translation>
    </message>
    <message>
        <source>Row spacing of art text</source>
        <translation>艺术字的行间距</translation>
    </message>
</context>
<context>
    <name>BusySign</name>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Cancelling...</source>
        <translation>正在取消…</translation>
    </message>
</context>
<context>
    <name>CharacterPanel</name>
    <message>
        <source>Font</source>
        <translation>字体</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>颜色</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>字号</translation>
    </message>
    <message>
        <source>pt</source>
        <translation>磅</translation>
    </message>
    <message>
        <source>B</source>
        <comment>sign of bold</comment>
        <translation>B</translation>
    </message>
    <message>
        <source>Bold</source>
        <translation>粗体</translation>
    </message>
    <message>
        <source>I</source>
        <comment>sign of italic</comment>
        <translation>I</translation>
    </message>
    <message>
        <source>Italic</source>
        <translation>斜体</translation>
    </message>
    <message>
        <source>U</source>
        <comment>sign of underline</comment>
        <translation>U</translation>
    </message>
    <message>
        <source>Underline</source>
        <translation>下划线</translation>
    </message>
    <message>
        <source>S</source>
        <comment>sign of strikeout</comment>
        <translation>S</translation>
    </message>
    <message>
        <source>Strikeout</source>
        <translation>删除线</translation>
    </message>
    <message>
        <source>Style</source>
        <translation>样式</translation>
    </message>
    <message>
        <source>Superscript</source>
        <translation>上标</translation>
    </message>
    <message>
        <source>Subscript</source>
        <translation>下标</translation>
    </message>
    <message>
        <source>AA</source>
        <comment>sign of capitals</comment>
        <translation>AA</translation>
    </message>
    <message>
        <source>Capitals</source>
        <translation>全部大写</translation>
    </message>
    <message>
        <source>Form</source>
        <translation>形式</translation>
    </message>
    <message>
        <source>Horizontal scale</source>
        <translation>水平缩放</translation>
    </message>
    <message>
        <source>Vertical scale</source>
        <translation>垂直缩放</translation>
    </message>
    <message>
        <source>Baseline shift</source>
        <translation>基线偏移</translation>
    </message>
    <message>
        <source>Letter spacing, in thousandths of the size</source>
        <translation>字间距（字号的千分之一）</translation>
    </message>
    <message>
        <source>Letter spacing</source>
        <translation>字间距</translation>
    </message>
    <message>
        <source>Row spacing</source>
        <translation>行间距</translation>
    </message>
    <message>
        <source>Kerning</source>
        <translation>字偶间距</translation>
    </message>
    <message>
        <source>Space at the caret, in thousandths of the size</source>
        <translation>光标处的间距（字号的千分之几）</translation>
    </message>
</context>
<context>
    <name>ColorButton</name>
    <message>
        <source>Several colors</source>
        <translation>多种颜色</translation>
    </message>
</context>
<context>
    <name>ExportCommands</name>
    <message>
        <source>&amp;Export...</source>
        <translation>导出(&amp;E)...</translation>
    </message>
    <message>
        <source>&amp;Print...</source>
        <translation>打印(&amp;P)...</translation>
    </message>
    <message>
        <source>Copy as P&amp;icture</source>
        <translation>复制为图片(&amp;I)</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>导出</translation>
    </message>
    <message>
        <source>Picture of pixels (*.png)</source>
        <translation>像素图片 (*.png)</translation>
    </message>
    <message>
        <source>Picture of outlines (*.svg)</source>
        <translation>轮廓图片 (*.svg)</translation>
    </message>
    <message>
        <source>Document (*.pdf)</source>
        <translation>文档 (*.pdf)</translation>
    </message>
    <message>
        <source>Exported %1</source>
        <translation>已导出 %1</translation>
    </message>
    <message>
        <source>The picture is not written.

%1</source>
        <translation>图片未写入。

%1</translation>
    </message>
    <message>
        <source>Dots per inch:</source>
        <translation>每英寸点数：</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>打印</translation>
    </message>
    <message>
        <source>No picture is copied: %1</source>
        <translation>未复制图片：%1</translation>
    </message>
    <message>
        <source>Exporting %1</source>
        <translation>正在导出 %1</translation>
    </message>
    <message>
        <source>Printing</source>
        <translation>正在打印</translation>
    </message>
    <message>
        <source>The page is not printed: %1</source>
        <translation>页面未打印：%1</translation>
    </message>
    <message>
        <source>Copying</source>
        <translation>正在复制</translation>
    </message>
</context>
<context>
    <name>FileCommands</name>
    <message>
        <source>&amp;New</source>
        <translation>新建(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>打开(&amp;O)...</translation>
    </message>
    <message>
        <source>Open &amp;Recent</source>
        <translation>最近打开(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>保存(&amp;S)</translation>
    </message>
    <message>
        <source>Save &amp;As...</source>
        <translation>另存为(&amp;A)...</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>退出(&amp;Q)</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>未命名</translation>
    </message>
    <message>
        <source>Opening %1</source>
        <translation>正在打开 %1</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>%1

The page that is open stays as it is.</source>
        <translation>%1

当前打开的页面保持不变。</translation>
    </message>
    <message>
        <source>Recovering the page</source>
        <translation>正在恢复页面</translation>
    </message>
    <message>
        <source>Recovered: save the page to keep it</source>
        <translation>已恢复：请保存页面以保留内容</translation>
    </message>
    <message>
        <source>&amp;Clear List</source>
        <translation>清除列表(&amp;C)</translation>
    </message>
    <message>
        <source>Pages (*.vxpage *.json)</source>
        <translation>页面 (*.vxpage *.json)</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>另存为</translation>
    </message>
    <message>
        <source>Saving %1</source>
        <translation>正在保存 %1</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>The page is not saved.

%1</source>
        <translation>页面未保存。

%1</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>已保存 %1</translation>
    </message>
    <message>
        <source>Another program has changed %1. Replace it?</source>
        <translation>其他程序已更改 %1。要替换它吗？</translation>
    </message>
    <message>
        <source>Unsaved Changes</source>
        <translation>未保存的更改</translation>
    </message>
    <message>
        <source>Save the changes to %1?</source>
        <translation>要保存对 %1 的更改吗？</translation>
    </message>
    <message>
        <source>Not all of %1 can be shown.</source>
        <translation>无法显示 %1 的全部内容。</translation>
    </message>
</context>
<context>
    <name>FlagButton</name>
    <message>
        <source>On for a part</source>
        <translation>部分启用</translation>
    </message>
</context>
<context>
    <name>FontFamilyBox</name>
    <message>
        <source>This font is not installed</source>
        <translation>此字体未安装</translation>
    </message>
    <message>
        <source>Several fonts, or none</source>
        <translation>多种字体或无</translation>
    </message>
</context>
<context>
    <name>HistoryPanel</name>
    <message>
        <source>History</source>
        <translation>历史记录</translation>
    </message>
    <message>
        <source>The page as it was</source>
        <translation>页面的最初状态</translation>
    </message>
</context>
<context>
    <name>HostStrings</name>
    <message>
        <source>Add Object</source>
        <translation>添加对象</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>移动</translation>
    </message>
    <message>
        <source>Resize</source>
        <translation>调整大小</translation>
    </message>
    <message>
        <source>Rotate</source>
        <translation>旋转</translation>
    </message>
    <message>
        <source>Lock</source>
        <translation>锁定</translation>
    </message>
    <message>
        <source>Unlock</source>
        <translation>解锁</translation>
    </message>
    <message>
        <source>Change Text</source>
        <translation>更改文字</translation>
    </message>
    <message>
        <source>Change Style</source>
        <translation>更改样式</translation>
    </message>
    <message>
        <source>Please input text</source>
        <translation>请输入文字</translation>
    </message>
    <message>
        <source>Background Color</source>
        <translation>背景颜色</translation>
    </message>
    <message>
        <source>Fill Color</source>
        <translation>填充颜色</translation>
    </message>
    <message>
        <source>Transparent Background</source>
        <translation>背景透明</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>文字</translation>
    </message>
    <message>
        <source>Grid</source>
        <translation>格线</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>播放</translation>
    </message>
    <message>
        <source>Play Delay</source>
        <translation>播放间隔</translation>
    </message>
    <message>
        <source>None</source>
        <translation>无</translation>
    </message>
    <message>
        <source>Four Squares</source>
        <translation>田字格</translation>
    </message>
    <message>
        <source>Eight Sectors</source>
        <translation>米字格</translation>
    </message>
    <message>
        <source>Align</source>
        <translation>对齐</translation>
    </message>
    <message>
        <source>Change Order</source>
        <translation>更改次序</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>创建副本</translation>
    </message>
    <message>
        <source>Flip</source>
        <translation>垂直翻转</translation>
    </message>
    <message>
        <source>Mirror</source>
        <translation>水平翻转</translation>
    </message>
    <message>
        <source>Warp</source>
        <translation>变形</translation>
    </message>
    <message>
        <source>Replace Font</source>
        <translation>替换字体</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>&amp;File</source>
        <translation>文件(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>编辑(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>撤销(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>重做(&amp;R)</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>剪切(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>复制(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>粘贴(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>删除(&amp;D)</translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation>全选(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>视图(&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Select</source>
        <translation>选择(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Text</source>
        <translation>文字(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Art Text</source>
        <translation>艺术字(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>工具(&amp;T)</translation>
    </message>
    <message>
        <source>Art St&amp;yle</source>
        <translation>艺术字样式(&amp;Y)</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>工具</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <comment>Undo Move</comment>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>The text cannot be edited: a font is missing (%1)</source>
        <translation>无法编辑文字：缺少字体（%1）</translation>
    </message>
    <message>
        <source>&amp;Object</source>
        <translation>对象(&amp;O)</translation>
    </message>
    <message>
        <source>Paste P&amp;lain Text</source>
        <translation>粘贴纯文本(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Panels</source>
        <translation>面板(&amp;P)</translation>
    </message>
    <message>
        <source>The object is locked</source>
        <translation>对象已锁定</translation>
    </message>
    <message>
        <source>Pasting</source>
        <translation>正在粘贴</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>粘贴</translation>
    </message>
    <message>
        <source>The clipboard holds too many objects.</source>
        <translation>剪贴板中的对象太多。</translation>
    </message>
    <message>
        <source>The text on the clipboard has %L1 characters, which takes a while. Paste it?</source>
        <translation>剪贴板中的文字有 %L1 个字符，粘贴需要一些时间。要粘贴吗？</translation>
    </message>
</context>
<context>
    <name>MissingFontsPanel</name>
    <message>
        <source>Replacement</source>
        <translation>替换为</translation>
    </message>
    <message>
        <source>All fonts of the page are installed.</source>
        <translation>页面所用的字体均已安装。</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>替换</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Missing fonts</source>
        <translation>缺失的字体</translation>
    </message>
    <message>
        <source>Replace the font</source>
        <translation>替换该字体</translation>
    </message>
    <message>
        <source>Keep the font</source>
        <translation>保留该字体</translation>
    </message>
</context>
<context>
    <name>NumberField</name>
    <message>
        <source>Several values, or none</source>
        <translation>多个值或无</translation>
    </message>
</context>
<context>
    <name>ObjectList</name>
    <message>
        <source>Objects</source>
        <translation>对象</translation>
    </message>
    <message>
        <source>Objects of the page, the topmost first</source>
        <translation>页面上的对象，最上面的在前</translation>
    </message>
    <message>
        <source>Art text</source>
        <translation>艺术字</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>文字</translation>
    </message>
    <message>
        <source>Object</source>
        <translation>对象</translation>
    </message>
    <message>
        <source>%1, empty</source>
        <comment>Text, empty</comment>
        <translation>%1，空</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <comment>Text: Hello</comment>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>%1, locked</source>
        <comment>Text: Hello, locked</comment>
        <translation>%1，已锁定</translation>
    </message>
</context>
<context>
    <name>ObjectMenu</name>
    <message>
        <source>&amp;Edit Text</source>
        <translation>编辑文字(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Duplicate</source>
        <translation>创建副本(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Lock</source>
        <translation>锁定(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Order</source>
        <translation>次序(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Align</source>
        <translation>对齐(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Rotate</source>
        <translation>旋转(&amp;R)</translation>
    </message>
    <message>
        <source>90° to the &amp;Right</source>
        <translation>向右 90°(&amp;R)</translation>
    </message>
    <message>
        <source>90° to the &amp;Left</source>
        <translation>向左 90°(&amp;L)</translation>
    </message>
    <message>
        <source>To &amp;Front</source>
        <translation>置于最前(&amp;F)</translation>
    </message>
    <message>
        <source>For&amp;ward</source>
        <translation>前移一层(&amp;W)</translation>
    </message>
    <message>
        <source>Bac&amp;kward</source>
        <translation>后移一层(&amp;K)</translation>
    </message>
    <message>
        <source>To &amp;Back</source>
        <translation>置于最后(&amp;B)</translation>
    </message>
    <message>
        <source>&amp;Left</source>
        <translation>左对齐(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Centre</source>
        <translation>水平居中(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Right</source>
        <translation>右对齐(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Top</source>
        <translation>顶端对齐(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Middle</source>
        <translation>垂直居中(&amp;M)</translation>
    </message>
    <message>
        <source>&amp;Bottom</source>
        <translation>底端对齐(&amp;B)</translation>
    </message>
    <message>
        <source>Equal Gaps &amp;Across</source>
        <translation>横向等距(&amp;A)</translation>
    </message>
    <message>
        <source>Equal Gaps &amp;Down</source>
        <translation>纵向等距(&amp;D)</translation>
    </message>
</context>
<context>
    <name>ObjectPanel</name>
    <message>
        <source>Direction of the text</source>
        <translation>文字方向</translation>
    </message>
    <message>
        <source>Lines</source>
        <translation>横排</translation>
    </message>
    <message>
        <source>Columns</source>
        <translation>竖排</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>方向</translation>
    </message>
    <message>
        <source>Room of the text</source>
        <translation>文字区域</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>单行</translation>
    </message>
    <message>
        <source>Box</source>
        <translation>文本框</translation>
    </message>
    <message>
        <source>Box that grows</source>
        <translation>自动增长的文本框</translation>
    </message>
    <message>
        <source>Room</source>
        <translation>区域</translation>
    </message>
    <message>
        <source>Mirror left to right</source>
        <translation>左右翻转</translation>
    </message>
    <message>
        <source>Flip top to bottom</source>
        <translation>上下翻转</translation>
    </message>
    <message>
        <source>px</source>
        <translation>像素</translation>
    </message>
    <message>
        <source>X</source>
        <translation>X</translation>
    </message>
    <message>
        <source>Y</source>
        <translation>Y</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>宽度</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>高度</translation>
    </message>
    <message>
        <source>Angle</source>
        <translation>角度</translation>
    </message>
</context>
<context>
    <name>PageProblem</name>
    <message>
        <source>%1 cannot be read.</source>
        <translation>无法读取 %1。</translation>
    </message>
    <message>
        <source>%1 is no page.</source>
        <translation>%1 不是页面文件。</translation>
    </message>
    <message>
        <source>%1 was made by a newer version of the program.</source>
        <translation>%1 由更新版本的程序创建。</translation>
    </message>
    <message>
        <source>%1 is damaged.</source>
        <translation>%1 已损坏。</translation>
    </message>
</context>
<context>
    <name>PageSession</name>
    <message>
        <source>Missing font: %1</source>
        <translation>缺少字体：%1</translation>
    </message>
</context>
<context>
    <name>PageText</name>
    <message>
        <source>must be true or false</source>
        <translation>必须是 true 或 false</translation>
    </message>
    <message>
        <source>must be a number from -%1 to %1</source>
        <translation>必须是 -%1 到 %1 之间的数</translation>
    </message>
    <message>
        <source>must be a number above 0 and up to %1</source>
        <translation>必须是大于 0 且不超过 %1 的数</translation>
    </message>
    <message>
        <source>must be a whole number from 0 to %1</source>
        <translation>必须是 0 到 %1 之间的整数</translation>
    </message>
    <message>
        <source>must be one of %1</source>
        <translation>必须是以下之一：%1</translation>
    </message>
    <message>
        <source>must be a colour: a name, #rrggbb or #aarrggbb</source>
        <translation>必须是颜色：名称、#rrggbb 或 #aarrggbb</translation>
    </message>
    <message>
        <source>must be a text</source>
        <translation>必须是文本</translation>
    </message>
    <message>
        <source>there are bytes behind the end of the page</source>
        <translation>页面结尾之后还有字节</translation>
    </message>
    <message>
        <source>at byte %1: %2</source>
        <translation>第 %1 字节：%2</translation>
    </message>
    <message>
        <source>it is no page file</source>
        <translation>不是页面文件</translation>
    </message>
    <message>
        <source>the file ends in its first line</source>
        <translation>文件在首行内就结束了</translation>
    </message>
    <message>
        <source>the version must be 1 or more</source>
        <translation>版本必须为 1 或更大</translation>
    </message>
    <message>
        <source>version %1 is newer than this program, which knows %2</source>
        <translation>版本 %1 比本程序新，本程序支持到 %2</translation>
    </message>
    <message>
        <source>the file is cut short: there is no end of the page</source>
        <translation>文件不完整：没有页面结尾</translation>
    </message>
    <message>
        <source>section &apos;%1&apos; says %2 bytes, of which %3 are there</source>
        <translation>区段“%1”声明有 %2 字节，实际只有 %3 字节</translation>
    </message>
    <message>
        <source>section &apos;PAGE&apos; must be the first</source>
        <translation>区段“PAGE”必须是第一个</translation>
    </message>
    <message>
        <source>section &apos;END &apos; must be empty</source>
        <translation>区段“END ”必须为空</translation>
    </message>
    <message>
        <source>no JSON: %1</source>
        <translation>不是 JSON：%1</translation>
    </message>
    <message>
        <source>must be one JSON object {...}</source>
        <translation>必须是一个 JSON 对象 {...}</translation>
    </message>
    <message>
        <source>there is a second section &apos;PAGE&apos;</source>
        <translation>出现了第二个区段“PAGE”</translation>
    </message>
    <message>
        <source>the page is empty</source>
        <translation>页面为空</translation>
    </message>
    <message>
        <source>objects and images must have sections of their own</source>
        <translation>对象和图片必须有各自的区段</translation>
    </message>
    <message>
        <source>section &apos;%1&apos; is too short for what it holds</source>
        <translation>区段“%1”太短，容不下其内容</translation>
    </message>
    <message>
        <source>the name of an image must be UTF-8</source>
        <translation>图片名称必须是 UTF-8</translation>
    </message>
    <message>
        <source>there is a second image &apos;%1&apos;</source>
        <translation>出现了第二个图片“%1”</translation>
    </message>
    <message>
        <source>objects[%1].record: %2</source>
        <translation>objects[%1].record：%2</translation>
    </message>
    <message>
        <source>%1: there are such sections already</source>
        <translation>%1：已有这样的区段</translation>
    </message>
    <message>
        <source>the page is too large for a file</source>
        <translation>页面太大，无法写入文件</translation>
    </message>
    <message>
        <source>cannot read &apos;%1&apos;: %2</source>
        <translation>无法读取“%1”：%2</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is larger than %2 bytes</source>
        <translation>“%1”超过 %2 字节</translation>
    </message>
    <message>
        <source>cannot read &apos;%1&apos;: it is a directory</source>
        <translation>无法读取“%1”：它是文件夹</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is no text: NUL at byte %2</source>
        <translation>“%1”不是文本：第 %2 字节为 NUL</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is not UTF-8: bad byte %2</source>
        <translation>“%1”不是 UTF-8：第 %2 字节有误</translation>
    </message>
    <message>
        <source>line %1, column %2</source>
        <translation>第 %1 行第 %2 列</translation>
    </message>
    <message>
        <source>no JSON, at byte %1 (%2): %3</source>
        <translation>不是 JSON，第 %1 字节（%2）：%3</translation>
    </message>
    <message>
        <source>is missing</source>
        <translation>缺失</translation>
    </message>
    <message>
        <source>must be a number from %1 to %2</source>
        <translation>必须是 %1 到 %2 之间的数</translation>
    </message>
    <message>
        <source>must be a whole number from %1 to %2</source>
        <translation>必须是 %1 到 %2 之间的整数</translation>
    </message>
    <message>
        <source>must be an object {...}</source>
        <translation>必须是对象 {...}</translation>
    </message>
    <message>
        <source>must be a list [...]</source>
        <translation>必须是列表 [...]</translation>
    </message>
    <message>
        <source>page files have no objects of the kind &apos;%1&apos;</source>
        <translation>页面文件没有“%1”类对象</translation>
    </message>
    <message>
        <source>objects[%1]: it writes no record</source>
        <translation>objects[%1]：未能写出记录</translation>
    </message>
    <message>
        <source>the file &apos;%1&apos; is in the way</source>
        <translation>文件“%1”已存在且无法删除</translation>
    </message>
    <message>
        <source>the version so far cannot be kept as &apos;%1&apos;</source>
        <translation>无法将先前的版本保留为“%1”</translation>
    </message>
    <message>
        <source>the disk does not give back what was written</source>
        <translation>磁盘读回的内容与写入的不一致</translation>
    </message>
    <message>
        <source>images.%1: is no PNG that can be shown</source>
        <translation>images.%1：不是可显示的 PNG</translation>
    </message>
    <message>
        <source>%1: unknown kind &apos;%2&apos;, left out</source>
        <translation>%1：未知类别“%2”，未显示</translation>
    </message>
    <message>
        <source>%1: the text object refuses it</source>
        <translation>%1：文字对象拒绝读取</translation>
    </message>
    <message>
        <source>there is no image &apos;%1&apos;</source>
        <translation>没有图片“%1”</translation>
    </message>
    <message>
        <source>must be &quot;vxpage&quot;</source>
        <translation>必须是 &quot;vxpage&quot;</translation>
    </message>
    <message>
        <source>%1 is newer than this program, which knows %2</source>
        <translation>%1 比本程序新，本程序支持到 %2</translation>
    </message>
    <message>
        <source>must be a PNG in base64, under a name</source>
        <translation>必须是带名称的 base64 编码 PNG</translation>
    </message>
    <message>
        <source>the page has more than %1 characters</source>
        <translation>页面超过 %1 个字符</translation>
    </message>
    <message>
        <source>must be a colour: a name, #rrggbb or transparent</source>
        <translation>必须是颜色：名称、#rrggbb 或 transparent</translation>
    </message>
    <message>
        <source>neither a binary page nor UTF-8: bad byte %1</source>
        <translation>既不是二进制页面也不是 UTF-8：第 %1 字节有误</translation>
    </message>
    <message>
        <source>the page takes more than %1 bytes as a file</source>
        <translation>页面写成文件后超过 %1 字节</translation>
    </message>
    <message>
        <source>unknown kind of page file &apos;%1&apos;: .json or .vxpage</source>
        <translation>未知的页面文件类型“%1”：应为 .json 或 .vxpage</translation>
    </message>
    <message>
        <source>cannot write &apos;%1&apos;: %2</source>
        <translation>无法写入“%1”：%2</translation>
    </message>
    <message>
        <source>%1 is no library of text objects</source>
        <translation>%1 不是文字对象库</translation>
    </message>
    <message>
        <source>byte %1 of the record: %2</source>
        <translation>记录的第 %1 字节：%2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is cut short</source>
        <translation>“%1”不完整</translation>
    </message>
    <message>
        <source>the text behind it is cut short</source>
        <translation>其后的文本不完整</translation>
    </message>
    <message>
        <source>it is no record of an object</source>
        <translation>不是对象的记录</translation>
    </message>
</context>
<context>
    <name>PageView</name>
    <message>
        <source>Page</source>
        <translation>页面</translation>
    </message>
</context>
<context>
    <name>Panels</name>
    <message>
        <source>Character</source>
        <translation>字符</translation>
    </message>
    <message>
        <source>Paragraph</source>
        <translation>段落</translation>
    </message>
    <message>
        <source>Object</source>
        <translation>对象</translation>
    </message>
    <message>
        <source>Warp</source>
        <translation>变形</translation>
    </message>
    <message>
        <source>Art Text</source>
        <translation>艺术字</translation>
    </message>
    <message>
        <source>Fonts</source>
        <translation>字体</translation>
    </message>
    <message>
        <source>History</source>
        <translation>历史记录</translation>
    </message>
    <message>
        <source>Panels</source>
        <translation>面板</translation>
    </message>
</context>
<context>
    <name>ParagraphPanel</name>
    <message>
        <source>Align left</source>
        <translation>左对齐</translation>
    </message>
    <message>
        <source>Align centered</source>
        <translation>居中对齐</translation>
    </message>
    <message>
        <source>Align right</source>
        <translation>右对齐</translation>
    </message>
    <message>
        <source>Justify all lines</source>
        <translation>全部两端对齐</translation>
    </message>
    <message>
        <source>Justify, last line left</source>
        <translation>两端对齐，末行左对齐</translation>
    </message>
    <message>
        <source>Justify, last line centered</source>
        <translation>两端对齐，末行居中</translation>
    </message>
    <message>
        <source>Justify, last line right</source>
        <translation>两端对齐，末行右对齐</translation>
    </message>
    <message>
        <source>Left indent</source>
        <translation>左缩进</translation>
    </message>
    <message>
        <source>Right indent</source>
        <translation>右缩进</translation>
    </message>
    <message>
        <source>First line indent</source>
        <translation>首行缩进</translation>
    </message>
    <message>
        <source>Space before</source>
        <translation>段前间距</translation>
    </message>
    <message>
        <source>Space after</source>
        <translation>段后间距</translation>
    </message>
    <message>
        <source>Punctuation at line ends</source>
        <translation>行首行尾标点</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Relaxed</source>
        <translation>宽松</translation>
    </message>
    <message>
        <source>Strict</source>
        <translation>严格</translation>
    </message>
    <message>
        <source>Line ends</source>
        <translation>行首行尾</translation>
    </message>
    <message>
        <source>Half-width Han punctuation</source>
        <translation>半角中文标点</translation>
    </message>
    <message>
        <source>Hyphenation</source>
        <translation>断词</translation>
    </message>
    <message>
        <source>Alignment</source>
        <translation>对齐</translation>
    </message>
    <message>
        <source>pt</source>
        <translation>磅</translation>
    </message>
</context>
<context>
    <name>PictureExport</name>
    <message>
        <source>the printer does not begin</source>
        <translation>打印机无法开始</translation>
    </message>
</context>
<context>
    <name>RecoveryDialog</name>
    <message>
        <source>Recover Pages</source>
        <translation>恢复页面</translation>
    </message>
    <message>
        <source>The editor ended before these pages were saved. A file itself changes only when you save the recovered page.</source>
        <translation>编辑器在保存这些页面之前意外结束。只有保存恢复的页面后，文件本身才会改变。</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>未命名</translation>
    </message>
    <message>
        <source>%1, as of %2</source>
        <translation>%1，%2</translation>
    </message>
    <message>
        <source>Pages that can be recovered</source>
        <translation>可恢复的页面</translation>
    </message>
    <message>
        <source>&amp;Recover</source>
        <translation>恢复(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Discard</source>
        <translation>丢弃(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Later</source>
        <translation>稍后(&amp;L)</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>丢弃</translation>
    </message>
    <message>
        <source>Throw the unsaved changes of %1 away?</source>
        <translation>要丢弃 %1 未保存的更改吗？</translation>
    </message>
</context>
<context>
    <name>SaveName</name>
    <message>
        <source>%1 exists already. Replace it?</source>
        <translation>%1 已存在。要替换它吗？</translation>
    </message>
</context>
<context>
    <name>StyleNames</name>
    <message>
        <source>No Warp</source>
        <translation>无变形</translation>
    </message>
    <message>
        <source>Arc</source>
        <translation>扇形</translation>
    </message>
    <message>
        <source>Lower Arc</source>
        <translation>下弧形</translation>
    </message>
    <message>
        <source>Upper Arc</source>
        <translation>上弧形</translation>
    </message>
    <message>
        <source>Arch</source>
        <translation>拱形</translation>
    </message>
    <message>
        <source>Bulge</source>
        <translation>凸出</translation>
    </message>
    <message>
        <source>Lower Shell</source>
        <translation>下贝壳形</translation>
    </message>
    <message>
        <source>Upper Shell</source>
        <translation>上贝壳形</translation>
    </message>
    <message>
        <source>Flag</source>
        <translation>旗形</translation>
    </message>
    <message>
        <source>Wave</source>
        <translation>波形</translation>
    </message>
    <message>
        <source>Fish</source>
        <translation>鱼形</translation>
    </message>
    <message>
        <source>Rise</source>
        <translation>上升</translation>
    </message>
    <message>
        <source>Fisheye</source>
        <translation>鱼眼</translation>
    </message>
    <message>
        <source>Inflate</source>
        <translation>膨胀</translation>
    </message>
    <message>
        <source>Squeeze</source>
        <translation>挤压</translation>
    </message>
    <message>
        <source>Twist</source>
        <translation>扭转</translation>
    </message>
    <message>
        <source>Rectangle</source>
        <translation>矩形</translation>
    </message>
    <message>
        <source>Cut Corners</source>
        <translation>切角</translation>
    </message>
    <message>
        <source>Triangle Up</source>
        <translation>正三角</translation>
    </message>
    <message>
        <source>Triangle Down</source>
        <translation>倒三角</translation>
    </message>
    <message>
        <source>Chevron Up</source>
        <translation>上尖角</translation>
    </message>
    <message>
        <source>Chevron Down</source>
        <translation>下尖角</translation>
    </message>
    <message>
        <source>Arcs Up</source>
        <translation>上弧</translation>
    </message>
    <message>
        <source>Arcs Down</source>
        <translation>下弧</translation>
    </message>
    <message>
        <source>Ring From Left</source>
        <translation>左起圆环</translation>
    </message>
    <message>
        <source>Ring From Right</source>
        <translation>右起圆环</translation>
    </message>
    <message>
        <source>Short Right</source>
        <translation>右侧收短</translation>
    </message>
    <message>
        <source>Short Left</source>
        <translation>左侧收短</translation>
    </message>
    <message>
        <source>Stroke Down</source>
        <translation>下斜笔画</translation>
    </message>
    <message>
        <source>Stroke Up</source>
        <translation>上斜笔画</translation>
    </message>
    <message>
        <source>Curves Up</source>
        <translation>上曲线</translation>
    </message>
    <message>
        <source>Curves Down</source>
        <translation>下曲线</translation>
    </message>
    <message>
        <source>Cosine Wave</source>
        <translation>余弦波</translation>
    </message>
    <message>
        <source>Sine Wave</source>
        <translation>正弦波</translation>
    </message>
    <message>
        <source>Two Cosine Waves</source>
        <translation>双余弦波</translation>
    </message>
    <message>
        <source>Two Sine Waves</source>
        <translation>双正弦波</translation>
    </message>
    <message>
        <source>Bottom Bulge</source>
        <translation>底部凸出</translation>
    </message>
    <message>
        <source>Bottom Hollow</source>
        <translation>底部凹陷</translation>
    </message>
    <message>
        <source>Top Bulge</source>
        <translation>顶部凸出</translation>
    </message>
    <message>
        <source>Top Hollow</source>
        <translation>顶部凹陷</translation>
    </message>
    <message>
        <source>Narrow Right</source>
        <translation>右窄</translation>
    </message>
    <message>
        <source>Narrow Left</source>
        <translation>左窄</translation>
    </message>
    <message>
        <source>Narrow Top</source>
        <translation>上窄</translation>
    </message>
    <message>
        <source>Narrow Bottom</source>
        <translation>下窄</translation>
    </message>
    <message>
        <source>Rising</source>
        <translation>上升斜排</translation>
    </message>
    <message>
        <source>Falling</source>
        <translation>下降斜排</translation>
    </message>
    <message>
        <source>Widening Rise</source>
        <translation>渐宽上升</translation>
    </message>
    <message>
        <source>Widening Fall</source>
        <translation>渐宽下降</translation>
    </message>
    <message>
        <source>Top Falling</source>
        <translation>顶边下降</translation>
    </message>
    <message>
        <source>Top Rising</source>
        <translation>顶边上升</translation>
    </message>
    <message>
        <source>Bottom Rising</source>
        <translation>底边上升</translation>
    </message>
    <message>
        <source>Bottom Falling</source>
        <translation>底边下降</translation>
    </message>
    <message>
        <source>Peak</source>
        <translation>尖峰</translation>
    </message>
    <message>
        <source>Point</source>
        <translation>尖底</translation>
    </message>
    <message>
        <source>Waist</source>
        <translation>收腰</translation>
    </message>
    <message>
        <source>Diamond</source>
        <translation>菱形</translation>
    </message>
    <message>
        <source>Bowl</source>
        <translation>碗形</translation>
    </message>
</context>
<context>
    <name>TextSelection</name>
    <message>
        <source>Text</source>
        <translation>文字</translation>
    </message>
</context>
<context>
    <name>ViewMenu</name>
    <message>
        <source>Zoom &amp;In</source>
        <translation>放大(&amp;I)</translation>
    </message>
    <message>
        <source>Zoom &amp;Out</source>
        <translation>缩小(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Normal Size</source>
        <translation>原始大小(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Fit Page</source>
        <translation>适合页面(&amp;F)</translation>
    </message>
    <message>
        <source>Fit &amp;Selection</source>
        <translation>适合所选(&amp;S)</translation>
    </message>
    <message>
        <source>F&amp;ull Screen</source>
        <translation>全屏(&amp;U)</translation>
    </message>
</context>
<context>
    <name>WarpPanel</name>
    <message>
        <source>Reset</source>
        <translation>重置</translation>
    </message>
    <message>
        <source>Warp styles</source>
        <translation>变形样式</translation>
    </message>
    <message>
        <source>Bend</source>
        <translation>弯曲</translation>
    </message>
    <message>
        <source>Horizontal</source>
        <translation>水平</translation>
    </message>
    <message>
        <source>Vertical</source>
        <translation>垂直</translation>
    </message>
    <message>
        <source>Direction of the warp</source>
        <translation>变形方向</translation>
    </message>
    <message>
        <source>Along lines</source>
        <translation>沿行</translation>
    </message>
    <message>
        <source>Along columns</source>
        <translation>沿列</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>方向</translation>
    </message>
    <message>
        <source>Reset the warp</source>
        <translation>重置变形</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>The library of text objects cannot be loaded.
%1</source>
        <translation>无法加载文字对象库。
%1</translation>
    </message>
</context>
</TS>
