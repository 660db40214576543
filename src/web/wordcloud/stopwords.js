// Words that say nothing of a text by themselves.
var stopWords = ['a', 'all', 'an', 'and', 'are', 'as', 'at', 'be', 'been', 'but', 'by', 'can', 'do', 'for', 'from', 'had',
                 'has', 'have', 'he', 'his', 'I', 'if', 'in', 'is', 'it', 'not', 'of', 'on', 'or', 'she', 'that', 'that',
                 'the', 'their', 'there', 'they', 'this', 'to', 'was', 'we', 'were', 'what', 'which', 'will', 'with',
                 'would', 'you'];
