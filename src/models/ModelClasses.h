#pragma once

// The models of a project, by name.
class ChatModel;
class GroupModel;
class KernoGroupModel;
class KernoModel;
class KernoShortcutKeyModel;
class QuestionAnswerMainModel;
class QuestionModel;
class SourceMetadataKeyModel;
class SourceMetadataModel;
class SourceMetadataValueModel;
class SourceModel;
