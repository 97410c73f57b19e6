<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>LoginPanel</name>
    <message>
        <source>Nobody</source>
        <translation>未登录</translation>
    </message>
    <message>
        <source>Observer</source>
        <translation>观察员</translation>
    </message>
    <message>
        <source>Operator</source>
        <translation>操作员</translation>
    </message>
    <message>
        <source>Technician</source>
        <translation>技术员</translation>
    </message>
    <message>
        <source>Administrator</source>
        <translation>管理员</translation>
    </message>
    <message>
        <source>Level %1: %2</source>
        <translation>%1级：%2</translation>
    </message>
</context>
<context>
    <name>Severity</name>
    <message>
        <source>Information</source>
        <translation>信息</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>警告</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>错误</translation>
    </message>
    <message>
        <source>Level %1</source>
        <translation>%1级</translation>
    </message>
</context>
<context>
    <name>Skeleton</name>
    <message>
        <source>an entry of the list is empty</source>
        <translation>列表中有空项</translation>
    </message>
    <message>
        <source>a range is two numbers with a comma between</source>
        <translation>范围应为用逗号隔开的两个数</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no whole number</source>
        <translation>“%1”不是整数</translation>
    </message>
    <message>
        <source>the range ends before it begins</source>
        <translation>范围的终值小于初值</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no kind of input</source>
        <translation>“%1”不是输入类型</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is neither true nor false</source>
        <translation>“%1”既不是 true 也不是 false</translation>
    </message>
    <message>
        <source>a field has %1 parts, this one has %2</source>
        <translation>字段应有 %1 部分，此字段有 %2 部分</translation>
    </message>
    <message>
        <source>the field has no end</source>
        <translation>字段没有结束符</translation>
    </message>
    <message>
        <source>at character %1: %2</source>
        <translation>第 %1 个字符处：%2</translation>
    </message>
</context>
<context>
    <name>Phrases</name>
    <message>
        <source>wrong Qt: needs %1, the pendant runs with Qt %2</source>
        <translation>Qt 版本不符：需要 %1，示教器使用 Qt %2</translation>
    </message>
    <message>
        <source>missing symbol: %1</source>
        <translation>缺少符号：%1</translation>
    </message>
    <message>
        <source>needs a library that is not there: %1</source>
        <translation>缺少所需的库：%1</translation>
    </message>
    <message>
        <source>no plugin: has no function qelplugin::api()</source>
        <translation>不是插件：没有函数 qelplugin::api()</translation>
    </message>
    <message>
        <source>made for version %1 of the plugin interface, the pendant has %2</source>
        <translation>插件接口版本为 %1，示教器的接口版本为 %2</translation>
    </message>
    <message>
        <source>the plugin folder does not exist</source>
        <translation>插件文件夹不存在</translation>
    </message>
    <message>
        <source>the plugin folder holds no lib*.so</source>
        <translation>插件文件夹中没有 lib*.so</translation>
    </message>
    <message>
        <source>no factory: the library registers no plugin</source>
        <translation>没有工厂：该库未注册插件</translation>
    </message>
    <message>
        <source>not a library</source>
        <translation>不是库文件</translation>
    </message>
    <message>
        <source>a library for another kind of machine</source>
        <translation>该库用于其他类型的机器</translation>
    </message>
    <message>
        <source>another library has registered this name</source>
        <translation>此名称已由另一个库注册</translation>
    </message>
    <message>
        <source>its factory made no plugin</source>
        <translation>工厂未生成插件</translation>
    </message>
    <message>
        <source>The program %1 was left as it was: %2.</source>
        <translation>程序 %1 未作更改：%2。</translation>
    </message>
    <message>
        <source>The program %1 has %2 bytes. Divide it into programs of at most %3.</source>
        <translation>程序 %1 有 %2 字节。请拆分为不超过 %3 字节的程序。</translation>
    </message>
    <message>
        <source>There is a program %1 already. Choose another name, or delete that one first.</source>
        <translation>程序 %1 已存在。请使用其他名称，或先删除该程序。</translation>
    </message>
    <message>
        <source>There is no program %1. Choose one of the list.</source>
        <translation>没有程序 %1。请从列表中选择。</translation>
    </message>
    <message>
        <source>The list &quot;%1&quot; has no %2. Choose a name of the list.</source>
        <translation>列表“%1”中没有 %2。请从列表中选择名称。</translation>
    </message>
    <message>
        <source>There is a point %1 already. Choose another name.</source>
        <translation>点 %1 已存在。请使用其他名称。</translation>
    </message>
    <message>
        <source>The connection to the controller is down. Bring it up, then try again.</source>
        <translation>与控制器的连接已断开。请恢复连接后重试。</translation>
    </message>
    <message>
        <source>The name &quot;&quot; is empty. Give a name of 1 to %1 characters.</source>
        <translation>名称为空。请输入 1 到 %1 个字符的名称。</translation>
    </message>
    <message>
        <source>The name %1 has %2 characters. Give a name of at most %3.</source>
        <translation>名称 %1 有 %2 个字符。请输入不超过 %3 个字符的名称。</translation>
    </message>
    <message>
        <source>The name %1 holds a control character. Leave it out.</source>
        <translation>名称 %1 含有控制字符，请去掉。</translation>
    </message>
    <message>
        <source>The name %1 cannot stand in a program. Use letters, digits and underscores, and no digit first.</source>
        <translation>名称 %1 不能用于程序。请使用字母、数字和下划线，且不以数字开头。</translation>
    </message>
    <message>
        <source>The name %1 begins or ends with a blank. Leave it out.</source>
        <translation>名称 %1 的首尾有空格，请去掉。</translation>
    </message>
    <message>
        <source>The name %1 holds a slash. Leave it out.</source>
        <translation>名称 %1 含有斜杠，请去掉。</translation>
    </message>
</context>
<context>
    <name>pendant::CommentForm</name>
    <message>
        <source>Text:</source>
        <translation>文本：</translation>
    </message>
    <message>
        <source>Comment</source>
        <translation>注释</translation>
    </message>
    <message>
        <source>Program text</source>
        <translation>程序文本</translation>
    </message>
    <message>
        <source>A line for the reader; the robot passes it over</source>
        <translation>供阅读的一行文字，机器人不执行</translation>
    </message>
</context>
<context>
    <name>pendant::Drawer</name>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
</context>
<context>
    <name>pendant::FaultPanel</name>
    <message>
        <source>Connection dropped</source>
        <translation>连接断开</translation>
    </message>
    <message>
        <source>Robot powered</source>
        <translation>机器人已上电</translation>
    </message>
    <message>
        <source>Cell in virtual welding</source>
        <translation>单元处于非焊接模式</translation>
    </message>
    <message>
        <source>No reply</source>
        <translation>无应答</translation>
    </message>
    <message>
        <source>A command gets lost: nothing is done, an empty array comes</source>
        <translation>命令丢失：什么也不执行，应答为空数组</translation>
    </message>
    <message>
        <source>Lost before storing</source>
        <translation>存储前断开</translation>
    </message>
    <message>
        <source>A command drops the connection and is not carried out</source>
        <translation>命令使连接断开，且不被执行</translation>
    </message>
    <message>
        <source>Lost after storing</source>
        <translation>存储后断开</translation>
    </message>
    <message>
        <source>A command is carried out and drops the connection</source>
        <translation>命令被执行，随后连接断开</translation>
    </message>
    <message>
        <source>Reply of other types</source>
        <translation>应答元素类型错误</translation>
    </message>
    <message>
        <source>The reply is an array with an element of each type, none an answer</source>
        <translation>应答数组含每种类型的一个元素，均不是有效应答</translation>
    </message>
    <message>
        <source>Other value in &quot;return&quot;</source>
        <translation>“return”为其他值</translation>
    </message>
    <message>
        <source>Each value of an answer is replaced by another one</source>
        <translation>应答中的每个值都被另一个值替换</translation>
    </message>
    <message>
        <source>none</source>
        <translation>无</translation>
    </message>
    <message>
        <source>Empty reply</source>
        <translation>空应答</translation>
    </message>
    <message>
        <source>Commands are carried out, the reply is an empty array</source>
        <translation>命令已执行，应答为空数组</translation>
    </message>
    <message>
        <source>Reply of another plugin</source>
        <translation>其他插件的应答</translation>
    </message>
    <message>
        <source>The reply stands under another plugin&apos;s name</source>
        <translation>应答记在另一个插件的名下</translation>
    </message>
    <message>
        <source>Reply without &quot;return&quot;</source>
        <translation>应答缺少“return”</translation>
    </message>
    <message>
        <source>The command&apos;s answer has no result</source>
        <translation>命令的应答中没有结果</translation>
    </message>
    <message>
        <source>Wrong types</source>
        <translation>类型错误</translation>
    </message>
    <message>
        <source>Texts for numbers and numbers for texts</source>
        <translation>数字变为文本，文本变为数字</translation>
    </message>
    <message>
        <source>Register list is no array</source>
        <translation>寄存器列表不是数组</translation>
    </message>
    <message>
        <source>The register list is an object</source>
        <translation>寄存器列表是一个对象</translation>
    </message>
    <message>
        <source>Registers with other keys</source>
        <translation>寄存器使用其他键名</translation>
    </message>
    <message>
        <source>Registers have reg_name, data_type and access for name, type and rw</source>
        <translation>寄存器以 reg_name、data_type、access 代替 name、type、rw</translation>
    </message>
    <message>
        <source>Registers without metadata</source>
        <translation>寄存器缺少元数据</translation>
    </message>
    <message>
        <source>Registers have neither a type nor an access</source>
        <translation>寄存器既无类型也无读写属性</translation>
    </message>
    <message>
        <source>Registers named by numbers</source>
        <translation>寄存器名为数字</translation>
    </message>
    <message>
        <source>The name of a register is a number and no text</source>
        <translation>寄存器的名称是数字而不是文本</translation>
    </message>
    <message>
        <source>First port of each kind gone</source>
        <translation>每类端口缺少第一个</translation>
    </message>
    <message>
        <source>The first port of each kind is gone from the controller</source>
        <translation>控制器上每类端口的第一个已消失</translation>
    </message>
    <message>
        <source>Refuse with code</source>
        <translation>以错误码拒绝</translation>
    </message>
    <message>
        <source>Every command is refused with this code; 0: none</source>
        <translation>所有命令均以此错误码拒绝；0：不拒绝</translation>
    </message>
    <message>
        <source>Delay of replies</source>
        <translation>应答延时</translation>
    </message>
    <message>
        <source>Time before each reply; 0: none</source>
        <translation>每次应答前的时间；0：无延时</translation>
    </message>
</context>
<context>
    <name>pendant::IoMonitor</name>
    <message>
        <source>none</source>
        <translation>无</translation>
    </message>
    <message>
        <source>%1 (unusable)</source>
        <translation>%1（不可用）</translation>
    </message>
    <message>
        <source>%1 (off)</source>
        <translation>%1（关闭）</translation>
    </message>
    <message>
        <source>On</source>
        <translation>开</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>关</translation>
    </message>
    <message>
        <source>Outputs</source>
        <translation>输出</translation>
    </message>
    <message>
        <source>Inputs</source>
        <translation>输入</translation>
    </message>
    <message>
        <source>Signal</source>
        <translation>信号</translation>
    </message>
    <message>
        <source>Mapped to</source>
        <translation>映射到</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>值</translation>
    </message>
    <message>
        <source>Adhesion Detection Enable</source>
        <translation>粘丝检测启用</translation>
    </message>
    <message>
        <source>Adhesion Detection Feedback</source>
        <translation>粘丝检测反馈</translation>
    </message>
    <message>
        <source>Assist Gas</source>
        <translation>辅助气体</translation>
    </message>
    <message>
        <source>Descent signal</source>
        <translation>下降信号</translation>
    </message>
    <message>
        <source>Duty</source>
        <translation>占空比</translation>
    </message>
    <message>
        <source>Frequency</source>
        <translation>频率</translation>
    </message>
    <message>
        <source>Gas detect</source>
        <translation>气体检测</translation>
    </message>
    <message>
        <source>Guide laser</source>
        <translation>红光</translation>
    </message>
    <message>
        <source>Laser alarm</source>
        <translation>激光器报警</translation>
    </message>
    <message>
        <source>Laser feedback</source>
        <translation>出光反馈</translation>
    </message>
    <message>
        <source>Laser on</source>
        <translation>出光</translation>
    </message>
    <message>
        <source>Laser power</source>
        <translation>激光功率</translation>
    </message>
    <message>
        <source>Manual feed BWD</source>
        <translation>手动退丝</translation>
    </message>
    <message>
        <source>Manual feed on</source>
        <translation>手动送丝</translation>
    </message>
    <message>
        <source>Power</source>
        <translation>功率</translation>
    </message>
    <message>
        <source>Process JOB</source>
        <translation>工艺JOB</translation>
    </message>
    <message>
        <source>Swing JOB</source>
        <translation>摆动JOB</translation>
    </message>
    <message>
        <source>Welder Ready</source>
        <translation>焊机就绪</translation>
    </message>
    <message>
        <source>Wire back feed</source>
        <translation>退丝</translation>
    </message>
    <message>
        <source>Wire feed on</source>
        <translation>送丝</translation>
    </message>
    <message>
        <source>Wire feedback</source>
        <translation>送丝反馈</translation>
    </message>
    <message>
        <source>Wire feeder alarm</source>
        <translation>送丝机报警</translation>
    </message>
    <message>
        <source>Wire speed feedback</source>
        <translation>送丝速度反馈</translation>
    </message>
    <message>
        <source>Wire speed</source>
        <translation>送丝速度</translation>
    </message>
</context>
<context>
    <name>pendant::LoginPanel</name>
    <message>
        <source>Log in</source>
        <translation>登录</translation>
    </message>
    <message>
        <source>Level 3 and above may operate.</source>
        <translation>3级及以上可操作。</translation>
    </message>
</context>
<context>
    <name>pendant::MainWindow</name>
    <message>
        <source>Pendant</source>
        <translation>示教器</translation>
    </message>
    <message>
        <source>Messages</source>
        <translation>消息</translation>
    </message>
    <message>
        <source>Faults</source>
        <translation>故障</translation>
    </message>
    <message>
        <source>I/O</source>
        <translation>I/O</translation>
    </message>
    <message>
        <source>Controller log</source>
        <translation>控制器日志</translation>
    </message>
    <message>
        <source>Plugins</source>
        <translation>插件</translation>
    </message>
    <message>
        <source>The controller has said nothing yet.</source>
        <translation>控制器尚无日志。</translation>
    </message>
    <message>
        <source>Robot programs</source>
        <translation>机器人程序</translation>
    </message>
</context>
<context>
    <name>pendant::MessageModel</name>
    <message>
        <source>Time</source>
        <translation>时间</translation>
    </message>
    <message>
        <source>Severity</source>
        <translation>级别</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>消息</translation>
    </message>
</context>
<context>
    <name>pendant::MessagePage</name>
    <message>
        <source>Clear</source>
        <translation>清空</translation>
    </message>
</context>
<context>
    <name>pendant::PluginPage</name>
    <message>
        <source>State</source>
        <translation>状态</translation>
    </message>
    <message>
        <source>Plugin</source>
        <translation>插件</translation>
    </message>
    <message>
        <source>File</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>原因</translation>
    </message>
    <message>
        <source>Loaded</source>
        <translation>已加载</translation>
    </message>
    <message>
        <source>Not loaded</source>
        <translation>未加载</translation>
    </message>
</context>
<context>
    <name>pendant::ProgramDocument</name>
    <message>
        <source>Insert</source>
        <translation>插入</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>替换</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>Move up</source>
        <translation>上移</translation>
    </message>
    <message>
        <source>Move down</source>
        <translation>下移</translation>
    </message>
    <message>
        <source>Comment</source>
        <translation>注释</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>粘贴</translation>
    </message>
</context>
<context>
    <name>pendant::ProgramEditor</name>
    <message>
        <source>Text to find</source>
        <translation>查找内容</translation>
    </message>
    <message>
        <source>Programs</source>
        <translation>程序列表</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>查找</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>撤销</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>重做</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Comment</source>
        <translation>注释</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>Move up</source>
        <translation>上移</translation>
    </message>
    <message>
        <source>Move down</source>
        <translation>下移</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>剪切</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>粘贴</translation>
    </message>
    <message>
        <source>?</source>
        <translation>？</translation>
    </message>
    <message>
        <source>Description of the instruction</source>
        <translation>指令说明</translation>
    </message>
    <message>
        <source>Insert before</source>
        <translation>前插</translation>
    </message>
    <message>
        <source>Insert after</source>
        <translation>后插</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>替换</translation>
    </message>
    <message>
        <source>The program is empty. Choose an instruction.</source>
        <translation>程序为空，请选择指令。</translation>
    </message>
    <message>
        <source>Select a line, or choose an instruction.</source>
        <translation>请选择一行或一条指令。</translation>
    </message>
    <message>
        <source>This line is no instruction of a plugin. It is kept as it stands.</source>
        <translation>此行不是插件指令，将原样保留。</translation>
    </message>
    <message>
        <source>New: %1</source>
        <translation>新建：%1</translation>
    </message>
    <message>
        <source>Line %1: %2</source>
        <translation>第 %1 行：%2</translation>
    </message>
    <message>
        <source>Nothing to fill in.</source>
        <translation>无需填写。</translation>
    </message>
    <message>
        <source>Its form cannot be built: %1</source>
        <translation>无法生成表单：%1</translation>
    </message>
    <message>
        <source>%1: not saved yet</source>
        <translation>%1：尚未保存</translation>
    </message>
    <message>
        <source>Inserting &quot;%1&quot; was refused. Check what is filled in and who is logged in.</source>
        <translation>插入“%1”被拒绝。请检查填写内容和登录用户。</translation>
    </message>
    <message>
        <source>Replacing by &quot;%1&quot; was refused. Check what is filled in and who is logged in.</source>
        <translation>替换为“%1”被拒绝。请检查填写内容和登录用户。</translation>
    </message>
    <message>
        <source>The editor of &quot;%1&quot; gives no text. Fill in its fields.</source>
        <translation>“%1”的编辑器没有生成文本，请填写各项。</translation>
    </message>
    <message>
        <source>Type the text to find first.</source>
        <translation>请先输入查找内容。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not in the program.</source>
        <translation>程序中没有“%1”。</translation>
    </message>
</context>
<context>
    <name>pendant::ProgramList</name>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>New</source>
        <translation>新建</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>重命名</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>导入</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>导出</translation>
    </message>
    <message>
        <source>The program &quot;%1&quot; cannot be read. Check the connection to the controller.</source>
        <translation>无法读取程序“%1”。请检查与控制器的连接。</translation>
    </message>
    <message>
        <source>Name of the new program:</source>
        <translation>新程序的名称：</translation>
    </message>
    <message>
        <source>New name of &quot;%1&quot;:</source>
        <translation>“%1”的新名称：</translation>
    </message>
    <message>
        <source>Delete the program &quot;%1&quot;? It cannot be brought back.</source>
        <translation>删除程序“%1”？删除后无法恢复。</translation>
    </message>
    <message>
        <source>Import a program</source>
        <translation>导入程序</translation>
    </message>
    <message>
        <source>Export the program</source>
        <translation>导出程序</translation>
    </message>
    <message>
        <source>The file %1 cannot be read: %2. Choose another one.</source>
        <translation>无法读取文件 %1：%2。请选择其他文件。</translation>
    </message>
    <message>
        <source>The file %1 cannot be written: %2. Choose another place.</source>
        <translation>无法写入文件 %1：%2。请选择其他位置。</translation>
    </message>
</context>
<context>
    <name>pendant::ProgramPage</name>
    <message>
        <source>&quot;%1&quot; has changes that are not saved.</source>
        <translation>“%1”有未保存的更改。</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>放弃</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
</context>
<context>
    <name>pendant::QuestionPanel</name>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
<context>
    <name>pendant::ShellBackend</name>
    <message>
        <source>The point &quot;%1&quot; was not stored. %2</source>
        <translation>点“%1”未能存储。%2</translation>
    </message>
</context>
<context>
    <name>pendant::SkeletonForm</name>
    <message>
        <source>Nothing to fill in.</source>
        <translation>无需填写。</translation>
    </message>
</context>
<context>
    <name>pendant::TopBar</name>
    <message>
        <source>Controller</source>
        <translation>控制器</translation>
    </message>
    <message>
        <source>Robot</source>
        <translation>机器人</translation>
    </message>
    <message>
        <source>Program</source>
        <translation>程序</translation>
    </message>
    <message>
        <source>User</source>
        <translation>用户</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>语言</translation>
    </message>
    <message>
        <source>Light or dark</source>
        <translation>浅色或深色</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>已连接</translation>
    </message>
    <message>
        <source>No connection</source>
        <translation>未连接</translation>
    </message>
    <message>
        <source>Powered</source>
        <translation>已上电</translation>
    </message>
    <message>
        <source>Power off</source>
        <translation>未上电</translation>
    </message>
</context>
</TS>
