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
</context>
<context>
    <name>OutputFile</name>
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
    <name>main</name>
    <message>
        <source>The library of text objects cannot be loaded.
%1</source>
        <translation>无法加载文字对象库。
%1</translation>
    </message>
</context>
</TS>
