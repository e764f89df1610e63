<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
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
        <source>A picture is a file with the suffix .png, .svg or .pdf.</source>
        <translation>图片文件的后缀是 .png、.svg 或 .pdf。</translation>
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
        <source>The page is not printed: the printer does not begin</source>
        <translation>页面未打印：打印机无法开始</translation>
    </message>
    <message>
        <source>No picture is copied: %1</source>
        <translation>未复制图片：%1</translation>
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
        <translation>再制</translation>
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
        <source>Art &amp;Style</source>
        <translation>艺术字样式(&amp;S)</translation>
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
        <translation>编辑文本(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Duplicate</source>
        <translation>再制(&amp;D)</translation>
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
        <source>Back&amp;ward</source>
        <translation>后移一层(&amp;W)</translation>
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
    <name>main</name>
    <message>
        <source>The library of text objects cannot be loaded.
%1</source>
        <translation>无法加载文字对象库。
%1</translation>
    </message>
</context>
</TS>
